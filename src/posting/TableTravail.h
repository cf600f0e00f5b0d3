#pragma once
// Lignes de la table de travail wSaisie, lues d'un coup dans l'ordre de la table.

#include "store/Enregistrements.h"

#include <cstdint>
#include <vector>

struct LigneTravail {
    std::int64_t rowid = 0;
    table::Saisie s;
};

std::vector<LigneTravail> LireTableTravail();
// Une ligne de wSaisie sur ce compte, dans ce journal : numéro, classe, libellé, solde,
// tiers, poste du bilan et fonction du compte ; le reste à remplir.
table::Saisie LigneSurCompte(const table::Compte& compte, const QString& journal);

// La table de travail vidée, avant une autre écriture.
void ViderTableTravail();
void EcrireNumeroTravail(std::int64_t rowid, double numero);
void EcrireMontantTravail(std::int64_t rowid, Montant montant);

// Conversion des montants saisis dans la monnaie de l'exercice ; un écart d'arrondi
// devient une ligne de plus sur 677 (perte) ou 777 (gain).
void ConvertirSaisie(const QString& cle);
