#pragma once
// Porte des données des états. Balances, grand livre et journaux lisent la base d'extraction
// sauve.mdb faite à l'ouverture des éditions (les chiffres du moment) ; le centralisateur, le
// bilan et le plan lisent la base principale, leurs tables de travail y étant remplies juste
// avant.

#include "base/Montant.h"
#include "store/Enregistrements.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace etats {

struct CompteDuLivre {
    QString numero, libelle, erCpt;
    Montant sde, cumD, cumC, solde;
};

struct LigneDuLivre {
    double numero = 0;
    QString dateEcr, journal, libelle; // date AAAAMMJJ
    Montant montant;                   // signé comme rangé
    bool debit = false;
};

// Le grand livre tiré de la requête GrandLiv de la base d'extraction (à refaire d'abord par
// CreerVueGrandLivre) : chaque compte qui a des lignes et un montant, hors collectifs (Menu
// 155 et 165), par numéro, puis ses lignes par numéro d'écriture. compte vide : tous les
// comptes ; sinon ce compte seul.
void LireGrandLivre(const QString& dossier, const QString& cle, const QString& compte,
                    const std::function<void(const CompteDuLivre&)>& surCompte,
                    const std::function<void(const LigneDuLivre&)>& surLigne);

// Comptes d'une balance de la base d'extraction, par numéro : "G" générale (hors tiers),
// "C" clients, "F" fournisseurs ; seulement ceux qui ont un solde d'ouverture ou un mouvement.
std::vector<CompteDuLivre> ComptesDeLaBalance(const QString& dossier, const QString& cle,
                                              const QString& code);

struct LigneDuJournal {
    double numero = 0;
    QString dateEcr, journal, compte, libelle; // date AAAAMMJJ
    Montant montant;
    bool debit = false;
};
// Lignes d'un journal ("*" : tous) de la base d'extraction par numéro ; mois 1 à 12 lu sur
// la date d'écriture, 0 pour tout l'exercice.
void LireJournal(const QString& dossier, const QString& cle, const QString& code, int mois,
                 const std::function<void(const LigneDuJournal&)>& surLigne);

struct LigneJourCent {
    int numero = 0;
    QString journal, mois;
    Montant debit, credit;
};

// Le journal centralisateur posé dans JourCent (vidé d'abord) : pour chaque journal dans
// l'ordre Général, Ventes, Achats, Trésorerie, Opérations diverses, Inventaire, ses douze
// mois tirés des totaux mensuels de l'exercice ; jauge(10, 20…) après chaque journal.
void RemplirJourCent(const QString& cle, const QStringList& nomsMois,
                     const std::function<void(int)>& jauge);
std::vector<LigneJourCent> LireJourCent();

// Bilan ("B") ou compte de résultat ("R") posé dans Wbilan (vidé d'abord) : à gauche actif
// (hors clients) ou charges (hors 699), à droite passif (hors fournisseurs) ou produits
// (hors 799), comptes de solde non nul, côte à côte sur autant de lignes que la plus longue.
void RemplirWbilan(const QString& cle, const QString& code);
std::vector<table::Wbilan> LireWbilan();

// La base d'extraction sauve.mdb du dossier des données, refaite depuis son modèle vide
// sauveb.mdb (créé depuis le schéma livré, sans Compte ni Ecriture, s'il manque) puis remplie
// des écritures et des comptes de l'exercice : les états en lisent les chiffres du moment.
enum class Extraction { Faite, EchecRecopie, EchecEcriture, EchecCompte };
Extraction ExtraireExercice(const QString& dossier, const QString& cle);
// La requête GrandLiv de la base d'extraction, refaite pour tout le livre (compte vide) ou
// pour un compte.
void CreerVueGrandLivre(const QString& dossier, const QString& cle, const QString& compte);

// La dernière balance fiscale (table Fiscal), dans l'ordre où elle a été écrite ; montants
// signés, débit positif.
struct LigneFiscale {
    QString numCpt, intitule;
    Montant soldeAN, mvtDeb, mvtCre, solde, soldeAnt;
};
std::vector<LigneFiscale> LireFiscal();
// Sommes des soldes débiteurs (positifs) et créditeurs (négatifs, gardés négatifs).
void TotauxFiscal(Montant& totDeb, Montant& totCre);

// Tous les comptes de l'exercice, par numéro, même sans montant.
std::vector<table::Compte> ComptesDuPlan(const QString& cle);

} // namespace etats
