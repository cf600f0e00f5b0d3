#pragma once
// Les données de la saisie, sans écran : les lignes de wSaisie de l'écriture en cours, le
// numéro de la suivante, la liste des comptes d'une case de menu ou d'un journal, et le
// passage de l'écriture. Les écrans de saisie ne passent que par ici pour lire et écrire.

#include "base/Montant.h"
#include "store/Enregistrements.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

namespace saisie {

// Numéro proposé pour l'écriture suivante : le plus grand numéro des livres l'emporte sur
// le compteur de l'exercice. Date de saisie de l'exercice (AAAAMMJJ).
struct Entete {
    QString numero;
    QString dateSaisie;
};
Entete LireEntete();

// Un compte offert dans une liste de choix.
struct CompteOffert {
    QString numero; // tel qu'il est rangé, sans blancs de fin
    QString libelle;
    Montant solde;
};

// Comptes de l'exercice ouvert dont la fonction (Menu) est l'une de ces classes, par
// numéro. Aucune classe : aucun compte.
std::vector<CompteOffert> ComptesDesClasses(const QList<int>& classes);
// Comptes de l'exercice ouvert, sauf ces numéros, par numéro.
std::vector<CompteOffert> ComptesSauf(const QStringList& numeros);
// Les classes d'une case de menu (tMenuAutorise), dans l'ordre.
QList<int> ClassesDeLaCase(const table::Tableau& caseMenu);

// Lignes de wSaisie dans l'ordre de la table ; les textes sont complétés à leur largeur.
struct Ligne {
    std::int64_t rowid = 0;
    table::Saisie s;
};
std::vector<Ligne> LireLignes();
int NombreLignes();

// Première ligne du compte, s'il est déjà dans l'écriture.
std::optional<table::Saisie> LigneDuCompte(const QString& numero);
// Première ligne de ce numéro de ligne (et de ce compte quand il est donné).
std::optional<Ligne> LireLigne(double wNumEcrt, const QString& numCpt = QString());

// Ligne d'un compte pour le journal donné, montant à zéro.
table::Saisie LigneDuCompteChoisi(const table::Compte& compte, double wNumEcrt,
                                  const QString& journal);
// Ligne préparée pour un compte choisi dans une case : celle du compte, plus la marque de
// la case (journal, rappel, signe, nombre) et sa clé.
table::Saisie LignePreparee(const table::Compte& compte, const table::Tableau& caseMenu,
                            double wNumEcrt, const QString& cleCase);
void AjouterLigne(table::Saisie& ligne);

// Retire la première ligne de ce numéro de ligne, ou de ce compte.
void RetirerLigneNumero(double wNumEcrt);
void RetirerLigneCompte(const QString& numero);
// Vide l'écriture en cours.
void Vider();

// Après une écriture passée, ce qui est rappelé pour la suivante : la saisie logique garde
// les lignes des cases avec rappel ; la saisie en débits et crédits ce que le journal garde
// (ventes sans les clients, achats sans les fournisseurs, trésorerie : banques et caisse).
void GarderRappelsDesCases();
void GarderRappelsDuJournal(const QString& journal);

// Montant d'une ligne : dates de l'écran (JJ/MM/AAAA ; échéance "__/__/____" ou vide
// possible), montant signé et sens. Les autres marques de la ligne sont remises à zéro.
struct MontantLigne {
    Montant montant;
    QString sens; // "D" ou "C" ; vide : le sens de la ligne ne change pas
    QString dateSaisie, datePiece, dateEcheance;
};
void EcrireMontant(std::int64_t rowid, const MontantLigne& m);

// Sens d'un montant signé sur une ligne de ce côté (E1, E2 : actif et charges ; R1, R2 :
// passif et produits) ; vide pour un autre code.
QString SensDuMontant(const QString& erEcr, Montant montant);
// Montant signé d'un montant positif porté au débit ou au crédit d'une ligne de ce côté.
Montant MontantDuSens(const QString& erEcr, const QString& sens, Montant montant);

// Sommes des côtés gauche (E1, E2) et droit (R1, R2), et vrai si tous les montants sont nuls.
struct Cotes {
    Montant gauche, droite;
    bool tousNuls = true;
};
Cotes SommerCotes();

// Nouveau libellé des lignes debut à fin de l'exercice, rangé tel que tapé.
void ChangerLibelle(double debut, double fin, const QString& libelle);

// Le libellé sur toutes les lignes, rangé tel que tapé, puis l'écriture passée sous ce
// numéro par le moteur.
void Passer(const QString& numero, const QString& libelle);

} // namespace saisie
