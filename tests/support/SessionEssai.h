#pragma once
// Session et données d'un essai : session remise à neuf, maroval.ini livré copié dans le
// dossier de données, base ouverte ; la société 1 et son exercice 2024 (clé Cle) ; sociétés
// et exercices posés directement dans la base.

#include "store/Enregistrements.h"

#include <QString>

namespace essai {

// Clé de l'exercice d'essai : société 1, année 2024.
inline const QString Cle = QStringLiteral("012024");

// Session neuve (session() = Session()) sur ce dossier de données, mois en français.
void NouvelleSession(const QString& dossier);

// Copie le maroval.ini livré dans le dossier s'il n'y est pas, modifiable.
void CopierIniLivre(const QString& dossier);

// maroval.ini livré puis base du dossier ouverte (créée aux tables livrées si besoin).
void OuvrirDossier(const QString& dossier);

// La société 1 et son exercice 2024 dans la session, montants à deux décimales, en euros.
void SessionExercice(const QString& nomSociete, const QString& dateSaisie);

// Crée dans la base la société 1 (nom de la session) et l'exercice 2024 qui finit le
// 31 décembre ; saisie (AAAAMMJJ) peut rester vide.
void CreerExerciceEssai(const QString& debut, const QString& saisie);

// Société ajoutée ; rend son numéro.
int Societe(const QString& nom, const QString& ville = QStringLiteral("Lyon"));

struct Exercice {
    QString debut = QStringLiteral("20240101");
    QString fin = QStringLiteral("20241231");
    QString saisie;
    double lastNumEcrit = 0;
    bool clos = false;
    QString symbole = QStringLiteral("€");
};

// Exercice posé tel quel ; la date de saisie vide devient celle du début.
void AjouterExercice(int numSoc, int annee, Exercice e = {});

// Exercice calendaire de l'année, date de saisie donnée (AAAAMMJJ) ou le 1er janvier.
void AjouterAnnee(int numSoc, int annee, const QString& saisie = QString());

table::Constante Constante(const QString& cle = Cle);
table::Compte LireCpt(const QString& numero);

} // namespace essai
