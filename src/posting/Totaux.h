#pragma once
// Les cumuls que tient une écriture : totaux des journaux, classes et postes du bilan de
// la table Constante, cumuls du compte, de son collectif et de son budget.

#include "base/Montant.h"
#include "store/Enregistrements.h"

#include <QString>

// Champs d'un journal dans Constante : totaux débit et crédit et leurs douze mois.
struct ChampsJournal {
    Montant table::Constante::*td;
    table::Mensuel table::Constante::*tdm;
    Montant table::Constante::*tc;
    table::Mensuel table::Constante::*tcm;
};
// G, V, A, T, D ou I ; nul pour une autre lettre.
const ChampsJournal* ChampsDuJournal(const QString& lettre);

// Ce qu'une écriture ajoute aux totaux de l'exercice.
struct CumulsEcriture {
    Montant TotalD, TotalC;
    Montant E1, E2, R1, R2;
    Montant BIENS, DAR, MD, CONS, SN, DAP, ACTI;
    // Sens en valeur absolue, classe et poste en montant signé.
    void AjouterLigne(const table::Saisie& ligne);
};

// Relit la ligne Constante de l'exercice, y ajoute l'écriture et la réécrit.
void MajConstanteEcriture(const QString& cle, const CumulsEcriture& cumuls, const QString& journal,
                          int mois, double dernierNum);

// Le compte de la ligne, puis son collectif (400 pour un fournisseur, 410 pour un client),
// puis son budget.
void MajComptesLigne(const QString& cle, const table::Saisie& ligne, int mois);

// Entier de 16 bits arrondi au pair ; hors limites, l'erreur d'exécution du programme.
table::Entier EnEntier(double valeur);

// Un compte tient un budget quand ses trois premiers caractères sont au moins "600" et ne
// sont ni "699" ni "799".
bool CompteBudgetaire(const QString& numero);
