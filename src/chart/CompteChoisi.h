#pragma once
// Compte désigné dans une liste (plan, balance, choix des comptes) pour l'écran qu'on ouvre
// ensuite : détail de ses lignes, changement de son libellé.

#include <QString>

QString& CompteChoisi();
