#pragma once
// Porte des données des états : les lignes que la base donne aux états qui ne passent pas
// par les portes de la consultation (grand livre).

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

// Le grand livre de l'exercice : chaque compte qui a un solde d'ouverture ou un mouvement,
// hors collectifs (Menu 155 et 165), par numéro, puis ses lignes par numéro d'écriture.
// compte vide : tous les comptes ; sinon ce compte seul.
void LireGrandLivre(const QString& cle, const QString& compte,
                    const std::function<void(const CompteDuLivre&)>& surCompte,
                    const std::function<void(const LigneDuLivre&)>& surLigne);

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

// Tous les comptes de l'exercice, par numéro, même sans montant.
std::vector<table::Compte> ComptesDuPlan(const QString& cle);

} // namespace etats
