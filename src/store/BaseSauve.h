#pragma once
// La base « sauve.mdb » du dossier des données : une copie du modèle vide « sauveb.mdb »
// (le schéma livré sans Compte ni Ecriture, créé s'il manque) qui reçoit les lignes d'un
// exercice, pour les états imprimés comme pour la sauvegarde sur disquette.

#include <QString>
#include <string>
#include <vector>

QString CheminBaseSauve(const QString& dossier);

// Refait sauve.mdb depuis le modèle ; faux si le modèle ne peut être créé ou copié.
bool RefaireBaseSauve(const QString& dossier);

// sauve.mdb attachée à la base sous le nom « sauve » le temps de l'objet.
class SauveAttachee {
public:
    explicit SauveAttachee(const QString& dossier);
    ~SauveAttachee();
    SauveAttachee(const SauveAttachee&) = delete;
    SauveAttachee& operator=(const SauveAttachee&) = delete;
};

// Copie dans sauve (attachée) les lignes de la table qui répondent à la condition (ses « ? »
// reçoivent les valeurs), dans l'ordre donné (vide : aucun). La table y est créée comme dans
// la base si elle manque. Une erreur de SQLite passe à l'appelant.
void CopierVersSauve(const std::string& table, const std::string& condition,
                     const std::vector<std::string>& valeurs, const std::string& ordre = {});
