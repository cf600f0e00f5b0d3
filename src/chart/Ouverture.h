#pragma once
// Bilan d'ouverture : les montants vont droit dans le solde de début des comptes et dans
// les totaux d'ouverture de l'exercice ouvert, sans écriture.

#include "base/Montant.h"

#include <QString>

// Solde de début du compte ; le solde suit (début + cumuls débit et crédit).
void MajSoldeOuverture(const QString& numero, Montant montant);
// Collectif (400, 410) : son solde de début prend la différence nouveau - ancien.
void MajCollectif(const QString& numero, Montant ancien, Montant nouveau);
// Totaux de Constante : SDE1 et E1 (ou SDR1 et R1) et le poste du bilan du compte.
void MajCumulsOuverture(const QString& numero, Montant ancien, Montant nouveau);
// Un montant tapé dans le bilan d'ouverture, en une seule validation : solde de début du
// compte, totaux de l'exercice et, pour un compte de tiers, son collectif (vide sinon). Une
// panne du disque au milieu laisse tout comme avant.
void EnregistrerMontantOuverture(const QString& numero, Montant ancien, Montant nouveau,
                                 const QString& collectif);
// Totaux d'ouverture de l'actif et du passif, écrits en quittant l'écran par "Retour".
void MajTotauxOuverture(Montant actif, Montant passif);
