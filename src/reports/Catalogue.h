#pragma once
// Les états du catalogue, chacun une définition en code qui rend son Document : titre,
// formules communes (société, exercice, date de saisie, version), colonnes, lignes gardées
// par la sélection, totaux venus de la vérification des livres.

#include "reports/Document.h"

#include <QString>

namespace rapport {

// Les formules communes de l'exercice ouvert : CRNomSoc, CRDebExo, CRFinExo, CRDateSaisie,
// CRVersion ; le titre (CRTitre) est donné.
Document Entete(const QString& titre);

// Balance "G" (générale), "C" (clients), "F" (fournisseurs) : les comptes qui ont un solde
// d'ouverture ou un mouvement, puis les totaux de TotauxBalance.
Document EtatBalance(const QString& code);

// Journal "*" (tous), "V", "A", "T", "D", "I" ; mois 1 à 12 sur la date d'écriture, 0 pour
// l'exercice ; totaux de TotauxJournal.
Document EtatJournal(const QString& code, int mois);

// Grand livre (compte vide) ou édition d'un compte : un groupe par compte (solde de début,
// lignes, total du compte), reports de page, puis les totaux de TotauxBalance("G").
Document EtatGrandLivre(const QString& compte);

// Journal centralisateur : JourCent (à remplir d'abord), un groupe par journal, son total
// annuel (CRTDJG, CRTCJG… tirés de l'exercice).
Document EtatJourCent();

// Bilan ("B", ACTIF / PASSIF) ou compte de résultat ("R", CHARGES / PRODUITS) : Wbilan (à
// remplir d'abord), les deux colonnes côte à côte et leurs totaux.
Document EtatResulBilan(const QString& code);

// Plan comptable : tous les comptes de l'exercice, même sans montant.
Document EtatPlan();

// Balance fiscale : la table Fiscal telle que la dernière création l'a laissée, montants
// signés (débit positif), et les totaux des soldes débiteurs et créditeurs.
Document EtatBalanceFisc();

// Titre d'un journal, suivi du nom du mois quand un mois est choisi.
QString TitreJournal(const QString& code, int mois);

} // namespace rapport
