#pragma once
// Export vers un tableur, commun à tous les écrans qui en ont un : choix du fichier,
// écriture CSV (UTF-8 avec marque d'ordre des octets, fins de ligne CR LF, séparateur de
// liste du système, aucune protection des guillemets ni du séparateur), puis proposition
// d'ouvrir le fichier avec le programme que le système lui associe.

#include "base/Montant.h"

#include <QSaveFile>
#include <QString>
#include <QStringList>
#include <optional>

// Séparateur de liste du système ("," s'il n'en donne pas). Les systèmes qui écrivent les
// décimales avec une virgule séparent les listes par un point-virgule.
QString SeparateurListe();

// Vrai si le système nomme un programme pour ouvrir ce fichier.
bool ApplicationAssociee(const QString& Fichier);
// Pour les tests : réponse imposée ; std::nullopt rend la vraie recherche.
void FixerApplicationAssociee(std::optional<bool> reponse);

// Forme simple d'un nombre : point décimal, sans groupes, un blanc devant une valeur
// positive ou nulle (" 12.5", "-3.25", " 0").
QString NombreSimple(Montant montant);
QString NombreSimple(double valeur);
// Conversion ordinaire d'un montant : signe décimal du système, sans groupes ni blanc.
QString NombreLocal(Montant montant);

// Fichier CSV en cours d'écriture ; une erreur d'écriture est l'erreur d'exécution.
class FichierCsv {
public:
    FichierCsv(const QString& chemin, const QString& separateur);
    ~FichierCsv();
    FichierCsv(const FichierCsv&) = delete;
    FichierCsv& operator=(const FichierCsv&) = delete;

    // Titres toujours entre guillemets.
    void EcrireTitres(const QStringList& titres) { EcrireLigne(titres, true); }
    void EcrireLigne(const QStringList& champs, bool guillemets);
    void Fermer();

private:
    void Ecrire(const QByteArray& octets);
    QSaveFile fichier;
    QString separateur;
};

// Dialogue d'enregistrement (filtre CSV, nom proposé) ; chemin vide si l'utilisateur annule.
QString ChoisirFichierExport(const QString& nomParDefaut);
// Bilan et compte de résultat : un fichier existant ne s'écrase qu'avec l'accord donné.
bool AccepterEcrasement(const QString& fichier);
// Fin de l'export : la phrase et la question "Export terminé" (Oui ouvre le fichier), ou
// la phrase seule quand aucun programme n'ouvre ce genre de fichier.
void TerminerExport(const QString& fichier, const QString& phrase, const QString& question);
