#pragma once
// Sauvegarde et restauration d'un exercice sur disquette. La « disquette » est le dossier
// réglé dans maroval.ini (Options/Disquette) : une clé USB, un dossier partagé. Un exercice
// y part dans une base sauve.mdb compressée en sauve.md_ (format SZDD), avec l'étiquette
// sauve.ini ; trois disquettes tournent.

#include <QString>
#include <functional>
#include <vector>

namespace disquette {

struct Sauvegarde {
    QString date; // AAAAMMJJHHMMSS
    int numDisk = 0;
    double lastNumEcrit = 0;
};

// Vrai quand un fichier peut être créé puis effacé dans le dossier de la disquette.
bool TesterDisquette();

struct Etiquette {
    QString societe, exercice, numDisk, nomSoc, date, lastNumEcrit; // "*" quand absent
};
Etiquette LireEtiquetteDisquette();
bool EtiquettePresente();

// Les sauvegardes faites de cet exercice, dans l'ordre de la table.
std::vector<Sauvegarde> Sauvegardes(int numSoc, int exercice);
// La disquette à prendre : celle dont la dernière sauvegarde est la plus ancienne (une
// disquette jamais servie passe avant, la 1 d'abord).
int DisqueSuivant(const std::vector<Sauvegarde>& sauvegardes);

// Fichiers présents sur la disquette ; vidage complet (faux si un fichier résiste).
QStringList FichiersDisquette();
bool ViderDisquette();

// Écrit l'étiquette sauve.ini de la disquette ; faux si elle ne s'écrit pas.
bool EcrireEtiquette(int numDisk, double lastNumEcrit, const QString& date);

// La ligne de la table Sauve de cette disquette remplacée ; retirée (echec d'après).
void NoterSauvegarde(int numSoc, int exercice, int numDisk, double lastNumEcrit,
                     const QString& date);
void RetirerSauvegarde(int numSoc, int exercice, int numDisk);

// L'exercice copié dans sauve.mdb du dossier des données (depuis le modèle vide), table par
// table ; avance(n) après chacune des huit. Faux (erreur en français) en cas d'échec.
bool CopierExercice(int numSoc, int exercice, const std::function<void(int)>& avance,
                    QString* erreur = nullptr);

// Le compresseur qu'appelle sauveg.sh : MAROVAL_SZDD s'il est donné, sinon maroval-szdd à
// côté du programme.
QString Compresseur();
// sauveg.sh dans le dossier des données, remis depuis la version livrée.
QString ScriptSauvegarde();

// Décompresse un fichier SZDD vers un autre ; faux s'il est illisible (rien n'est écrit).
bool DecompresserFichier(const QString& source, const QString& cible);

enum class Restauration { Faite, Existe, Erreur };
// Les tables de sauve.mdb du dossier des données insérées dans la base : la société (déjà
// là : tolérée), puis Budget (déjà là : l'exercice existe), puis les autres.
Restauration RestaurerExercice();

} // namespace disquette
