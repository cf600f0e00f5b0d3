#pragma once
// La base unique maroval.mdb, ouverte une fois pour tout le programme.

#include <QString>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

// La base ouverte ; lève une erreur d'exécution si aucune base n'est ouverte.
SQLite::Database& Base();
bool BaseOuverte();

// Ouvre maroval.mdb du dossier donné. Une base absente est créée avec le schéma et les
// tables de référence livrées ; une base présente n'est jamais écrasée.
void OuvrirBase(const QString& dossierDonnees);
// Ferme la base en la laissant en un seul fichier autonome.
void FermerBase();
// Vrai quand la base fermée de ce dossier tient entière dans maroval.mdb : son journal est
// absent ou vide. Faux si la recopie du journal a échoué (disque plein, panne) : copier le
// fichier seul donnerait alors des livres anciens ou abîmés.
bool BaseEnUnSeulFichier(const QString& dossierDonnees);
QString CheminBase();

// Texte français d'une erreur de la base : le fichier, ce qui s'est passé, la raison du
// système, et ce que l'utilisateur retrouve. Vide pour une exception qui n'est pas de la base.
QString DescriptionErreurBase(const std::exception& erreur);

// Requête préparée gardée en cache, remise à zéro et prête à lier. Une même requête ne
// doit pas servir à deux boucles imbriquées.
SQLite::Statement& Requete(const std::string& sql);

// Largeur d'une colonne de texte d'après le schéma (0 si la colonne n'est pas un texte).
int LargeurColonne(const QString& table, const QString& colonne);
// Texte coupé à la largeur de la colonne et sans blancs de fin, tel qu'il est rangé.
QString TexteRange(const QString& texte, int largeur);
// Texte complété de blancs à la largeur, tel que les enregistrements le portent.
QString TexteLu(const QString& texte, int largeur);
