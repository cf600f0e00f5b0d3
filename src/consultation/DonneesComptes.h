#pragma once
// Les comptes de l'exercice ouvert tels que la consultation les montre (balances, bilan,
// compte de résultat, graphiques, consultation d'un compte), sans écran.

#include "base/Montant.h"

#include <QString>
#include <vector>

namespace comptes {

struct Compte {
    QString numero, libelle, erCpt;
    Montant sde, cumD, cumC, solde;
};

// Les rubriques du bilan et du compte de résultat : actif hors clients, passif hors
// fournisseurs (les collectifs portent leurs tiers), charges et produits hors comptes de
// résultat de l'exercice.
enum class Rubrique { Actif, Passif, Charges, Produits };

// Les balances : générale (comptes généraux, hors tiers), des clients, des fournisseurs.
enum class Portee { Generale, Clients, Fournisseurs };
// Comptes d'une balance, par numéro.
std::vector<Compte> DeLaBalance(Portee portee);
// Comptes dans l'ordre de création, tous ou ceux d'une rubrique.
std::vector<Compte> ParCreation();
std::vector<Compte> DeLaRubrique(Rubrique rubrique);
// Côté du solde dans une balance : débiteur quand il va dans le sens naturel d'un compte
// d'actif ou de charge (codes en E), ou à contresens d'un compte de passif ou de produit.
bool SoldeDebiteur(const QString& erCpt, Montant solde);
// Somme exacte des soldes d'une rubrique.
Montant SommeSoldes(Rubrique rubrique);

} // namespace comptes
