#pragma once
// Livres d'essai du moteur : société 1, exercice 2024, avec leurs propres règles de
// numérotation (filtre posé ici) et leur plan ; des lignes posées dans wSaisie comme les
// écrans de saisie le font, passées par le vrai moteur.

#include "support/Outils.h"
#include "support/SessionEssai.h"
#include "support/TextesReprise.h"

#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <tuple>

namespace essai {

// Remplace le contenu de filtre : chaque ligne est BorneInf, BorneSup, Message, ERCPT,
// Bilan, Tiers, Menu.
void PoserFiltre(const QList<QStringList>& lignes);
void FiltreEssai();

// Session sur l'exercice d'essai et base ouverte (un autre processus l'a préparée). La
// session n'est pas remise à neuf : un redémarrage garde ce qu'un essai y a mis.
void ReprendreLivres(const QString& dossier, const QString& date = QStringLiteral("15/03/2024"));

// Session sur l'exercice d'essai, base ouverte, société, constante et plan de comptes.
void OuvrirLivres(const QString& dossier, const QString& date = QStringLiteral("15/03/2024"));

// Compte sans ligne de budget, comme l'aurait laissé une ancienne version du plan.
void CompteSansBudget(const QString& numero, const QString& libelle);

// Montant d'ouverture posé comme le bilan d'ouverture le fait : Sde et Solde du compte,
// et la part d'ouverture des totaux de l'exercice.
void SoldeOuverture(const QString& numero, Montant sde);

void ViderSaisie();

// Date de la session en AAAAMMJJ.
QString DateStockee();

// Une ligne telle que la saisie la laisse : montant positif quand le compte grandit de son
// côté naturel (débit pour E1 et E2, crédit pour R1 et R2).
// Ligne de wSaisie d'un compte de l'exercice d'essai comme la saisie la laisse : montant
// positif quand le compte grandit de son côté naturel, date AAAAMMJJ.
table::Saisie LigneDuCompte(const QString& numero, const QString& dc, Montant absolu,
                            const QString& journal, const QString& date, const QString& libelle,
                            const QString& caseMenu);

table::Saisie Ligne(const QString& numero, const QString& dc, Montant absolu,
                    const QString& journal = QStringLiteral("V"));
void Saisir(const QString& numero, const QString& dc, Montant absolu,
            const QString& journal = QStringLiteral("V"));

double DernierNumero();

// Passe wSaisie comme un écran de saisie : numéro suivant, monnaie "E".
void Passer(const QString& monnaie = QStringLiteral("E"));

// Une écriture passée par le moteur comme la saisie la laisse, à la date donnée (JJ/MM/AAAA) :
// (compte, sens, montant en euros) par ligne.
void Ecriture(const QString& date, const QString& journal,
              const QList<std::tuple<const char*, const char*, double>>& lignes);

// Vente, achat, règlement : trois lignes équilibrées d'un coup.
void Vente(Montant ht, Montant tva);

} // namespace essai
