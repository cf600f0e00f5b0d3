#pragma once
// Porte des données de la trésorerie : lettrage des comptes de clients (Menu 170) et de
// fournisseurs (Menu 160), prévisions par échéance, pointage des comptes de banque (Menu
// 330). Tout passe par Ecriture.Lettrage : 0 ouvert, 1 lettré ou pointé, 2 lettré contre le
// solde de début, 255 ancienne forme de 1.

#include "base/Montant.h"

#include <QString>
#include <array>
#include <functional>
#include <vector>

namespace tresor {

inline constexpr int MenuClients = 170, MenuFournisseurs = 160, MenuBanques = 330;

struct CompteTiers {
    QString numero, libelle, erCpt;
    Montant sde, cumD, cumC, solde;
};

// Comptes d'une classe, par numéro ; seulementNonSoldes : ceux dont le solde n'est pas nul.
std::vector<CompteTiers> Comptes(const QString& cle, int menu, bool seulementNonSoldes = false);
int NombreComptes(const QString& cle, int menu);

// Lettrage automatique d'un compte sur les exercices de exercice à celui de la clé : le
// solde de début contre un seul règlement égal, puis factures et règlements égaux deux à
// deux dans l'ordre des numéros d'écriture.
void LettrerUnCpt(const QString& numCpt, int exercice, Montant sde);

// Le lettrage automatique de toute une classe, en une seule transaction : chaque compte par
// LettrerUnCpt, puis ses lignes encore ouvertes lettrées si son solde est nul. avance(n)
// après chaque compte ; une exception (arrêt) laisse chaque lettrage comme avant.
void LettrerClasse(const QString& cle, int menu, int exercice,
                   const std::function<void(int)>& avance);

struct LigneTiers {
    double numero = 0;
    QString dateEcr, dateEcheance, libelle; // AAAAMMJJ ; échéance "________" sans date
    Montant montant;                        // signé comme rangé
    bool debit = false;
    int lettrage = 0;
};
// Lignes d'un compte par numéro : toutes, les ouvertes (Lettrage 0), ou les pointées
// (Lettrage 1).
enum class Choix { Toutes, Ouvertes, Pointees };
std::vector<LigneTiers> Lignes(const QString& cle, const QString& numCpt, Choix choix);
// Ce qui reste du solde de début : Sde plus les lignes lettrées contre lui (Lettrage 2).
Montant SoldeDebutALettrer(const QString& cle, const QString& numCpt, Montant sde);
// Somme des lignes d'un compte à ce lettrage ; zéro sans ligne.
Montant SommeLettrage(const QString& cle, const QString& numCpt, int lettrage);
// Montant rangé d'une ligne (zéro pour une ligne absente).
Montant MontantLigne(const QString& cle, double numEcr);

// Ces lignes prennent ce lettrage, ensemble ou pas du tout.
void Marquer(const QString& cle, const std::vector<double>& numeros, int lettrage);
// Toutes les lignes de ces comptes reviennent à 0, ensemble ou pas du tout.
void Delettrer(const QString& cle, const std::vector<QString>& comptes);

// Prévisions d'une classe : les factures ouvertes par mois d'échéance (0 à 11 : janvier à
// décembre, 12 : sans échéance), le reste des soldes de début, les règlements ouverts ; sur
// les comptes au solde non nul.
struct Previsions {
    std::array<Montant, 13> mois{};
    Montant cumSde, cumReg;
};
Previsions CalculerPrevisions(const QString& cle, int menu);
// Ce qui reste des soldes de début des comptes non soldés d'une classe.
Montant CalcSdeNLettre(const QString& cle, int menu);

// Lignes ouvertes d'une classe, par date d'échéance (sans date à la fin) : 0 toutes,
// 1 sans échéance, 2 avec échéance.
struct LigneOuverte {
    QString numCpt, libCpt, libEcr, dateEcheance;
    double numEcr = 0;
    Montant montant;
};
std::vector<LigneOuverte> LignesOuvertes(const QString& cle, int menu, int filtreEcheance);

// Pointage : 255 devient 1 dans toute la table, toutes sociétés et tous exercices.
void NormaliserPointage();
// Pointe (1) ou dépointe (0) une ligne ; rend son montant rangé.
Montant Pointer(const QString& cle, double numEcr, bool pointee);

} // namespace tresor
