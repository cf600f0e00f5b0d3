#pragma once
// Tables de référence livrées (filtre, Tableau, PlanType) : fichiers texte de data/,
// une ligne par enregistrement, champs séparés par des tabulations, première ligne
// (hors commentaires « # ») portant les noms des colonnes.

#include <QList>
#include <QString>
#include <QStringList>
#include <SQLiteCpp/Database.h>

struct FichierReference {
    QStringList colonnes;
    QList<QStringList> lignes;
    QString erreur; // vide si le fichier est bien formé
};

FichierReference LireFichierReference(const QString& contenu);

// Charge les trois tables depuis les ressources :/data/filtre.tsv, tableau.tsv,
// plantype.tsv (une table vide si le fichier manque).
void ChargerTablesReference(SQLite::Database& db);
// Charge un contenu dans une table ; rend le nombre de lignes écrites.
int ChargerTableReference(SQLite::Database& db, const QString& table, const QString& contenu);
