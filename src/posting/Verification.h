#pragma once
// Vérification des livres : la balance et le journal recalculés depuis les lignes sont
// comparés aux cumuls tenus par les écritures ; le détail va dans verif.txt.

#include "base/Montant.h"

#include <QString>

// Vrai quand les livres de l'exercice ouvert s'accordent. Écrit verif.txt dans le dossier
// des données (l'ancien est remplacé).
bool Verification();

// Choix "G" : comptes hors détail des clients et fournisseurs ; "C" : clients (Menu 170) ;
// "F" : fournisseurs (Menu 160). Comptes sans solde d'ouverture ni mouvement laissés de côté.
void TotauxBalance(const QString& Choix, Montant& TotDeb, Montant& TotCre, Montant& SolDeb,
                   Montant& SolCre);

// Journal : une lettre, ou "*" pour tous. Mois : 1 à 12, ou 0 et moins pour l'année.
void TotauxJournal(const QString& Journal, Montant& TotDeb, Montant& TotCre, int Mois);
