#pragma once
// Valeurs de session de la saisie, partagées par les écrans de la chaîne (menus, choix
// des comptes, saisie logique, saisie débit/crédit) : une seule instance de chacune.

#include "chart/CompteChoisi.h"

#include <QString>

// Une lettre (famille seule) ou deux (famille et ligne) : la clé du menu choisi.
QString& CleMenuSaisie();
// Libellé du menu en saisie logique, code de trésorerie en saisie débit/crédit.
QString& LigneMenuSaisie();
// Lettre du journal de la saisie en cours.
QString& JournalSaisie();
// Vrai quand l'écran de saisie revient après avoir passé l'écriture.
bool& EcriturePassee();
