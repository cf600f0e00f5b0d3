#pragma once
// L'état partagé par tous les écrans pendant une exécution : une seule instance.

#include "base/Montant.h"

#include <QString>
#include <QStringList>
#include <cstdint>

struct Session {
    QString DossierProgramme;
    QString DossierDonnees;
    std::int16_t NumSocCourante = 0;
    QString NomSocCourante;
    std::int16_t ExerciceCourant = 0;
    QString DateSaisieCourante; // JJ/MM/AAAA
    std::int16_t MoisDebutExercice = 0;
    QString MonnaieExercice;
    QString SymboleMonnaie = QStringLiteral("E");
    QString Decimales = QStringLiteral("0.00");
    QString FormatMontant = QStringLiteral("### ### ### ##0.00 E");
    double TauxConversion = 1;
    // Les mois en français, tels que les écrans et les états les écrivent.
    QStringList NomsMois = {
        QStringLiteral("Janvier"), QStringLiteral("Février"),  QStringLiteral("Mars"),
        QStringLiteral("Avril"),   QStringLiteral("Mai"),      QStringLiteral("Juin"),
        QStringLiteral("Juillet"), QStringLiteral("Août"),     QStringLiteral("Septembre"),
        QStringLiteral("Octobre"), QStringLiteral("Novembre"), QStringLiteral("Décembre")};
    bool ModeDebug = false;
    bool AucuneSociete = false;
    std::int16_t ModeCreSociete = 0;
    bool SauvegardeAutorisee = true;
    QString LigneCommande; // arguments du programme, sans son nom

    // Compte désigné dans une liste (plan, balance, choix des comptes) pour l'écran qu'on
    // ouvre ensuite : détail de ses lignes, changement de son libellé.
    QString CompteChoisi;
    // Saisie : une lettre (famille seule) ou deux (famille et ligne), la clé du menu choisi.
    QString CleMenuSaisie;
    // Libellé du menu en saisie logique, code de trésorerie en saisie débit/crédit.
    QString LigneMenuSaisie;
    // Lettre du journal de la saisie en cours.
    QString JournalSaisie;
    // Vrai quand l'écran de saisie revient après avoir passé l'écriture.
    bool EcriturePassee = false;
};

Session& session();

// Clé de l'exercice ouvert, construite au moment de l'emploi.
QString CleCourante();

// Nom du mois 1 à 12 ; un rang hors de la liste est une erreur d'exécution.
QString NomMois(int mois);

// Chiffres de la partie décimale ("0" ou "0." suivi des zéros) et image des montants.
void MajFormatMontant(int nbDecimales);

// Caractères 6 et 7 de la date de début AAAAMMJJ, tels quels : 20240101 donne 10.
std::int16_t CalculMoisDebutExercice(const QString& dateDebut);

// Nombre de comptes de l'exercice ouvert (0 si aucun).
int PlanSuffisant();

// Chemin de maroval.ini dans le dossier des données.
QString CheminIni();

// Le dossier qui tient lieu de lecteur de disquettes (maroval.ini, Options/Disquette) :
// une clé USB, un dossier partagé ; /media/floppy quand rien n'est réglé.
QString DossierDisquette();

// Un montant comme les écrans le montrent : l'image de la session (décimales, symbole).
QString AfficheMontant(Montant montant);
