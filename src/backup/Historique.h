#pragma once
// history.xml : l'historique des sauvegardes, un jeu d'enregistrements au format XML des
// anciens recordsets ADO (schéma "RowsetSchema" puis lignes z:row), cinq champs.

#include <QList>
#include <QString>
#include <optional>

struct LigneHistorique {
    qint64 HistoID = 0;
    std::optional<QString> Date; // AAAAMMJJHHMMSS, 14 caractères
    qint64 NbEcritures = 0;
    std::optional<QString> FichierSauvegarde; // chemin complet, 1024 caractères au plus
    qint64 TailleFic = 0;
};

// history.xml du dossier des données.
QString CheminHistorique();

// Les fonctions suivantes lèvent ErreurSauvegarde quand le fichier ne peut être lu ou écrit
// ou qu'il n'est pas un historique ; le fichier en place n'est alors jamais touché.

// Crée le fichier avec ses cinq champs et aucune ligne.
void CreerHistoriqueVide(const QString& chemin);
// Toutes les lignes, dans l'ordre du fichier.
QList<LigneHistorique> LireHistorique(const QString& chemin);
// Réécrit le fichier en entier ; il n'est remplacé qu'une fois le nouveau complet.
void EcrireHistorique(const QString& chemin, const QList<LigneHistorique>& lignes);

// Le contenu XML seul, pour les essais de format.
QByteArray HistoriqueEnXml(const QList<LigneHistorique>& lignes);
QList<LigneHistorique> HistoriqueDepuisXml(const QByteArray& contenu);
