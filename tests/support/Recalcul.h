#pragma once
// Recalcul indépendant des livres de l'exercice d'essai : les cumuls des comptes, des
// budgets et les totaux de l'exercice refaits ici depuis les lignes d'Ecriture, sans rien
// emprunter au moteur ; et un vidage complet des tables pour comparer deux états de la base.

#include "support/SessionEssai.h"

#include "store/Enregistrements.h"

#include <QString>
#include <QStringList>
#include <map>
#include <string>

namespace essai {

// Etat de départ : comptes, budgets et constante avant toute écriture.
struct Depart {
    std::map<QString, table::Compte> comptes;
    std::map<QString, table::Budget> budgets;
    table::Constante constante;
};

Depart Photographier();

// Cumuls attendus d'après les lignes d'Ecriture et l'état de départ, comparés à la base.
// Rend la liste des écarts (vide si tout concorde).
QString EcartsAvecRecalcul(const Depart& depart);

// Vérification des livres et recalcul depuis les lignes : les écarts (vide si tout va).
QString EcartsDesLivres(const Depart& depart);

QStringList VidageTable(const std::string& table);

// Toutes les tables sauf wSaisie (que la reprise ne touche pas), lignes triées : l'ordre
// physique change quand une image redevient la ligne de l'exercice.
QStringList Vidage();

// Lignes de b absentes de a (multiensembles).
QStringList Difference(const QStringList& a, const QStringList& b);

} // namespace essai
