#pragma once
// Générateur d'une comptabilité réaliste pour les mesures : une société, un plan type, un
// bilan d'ouverture, puis des mois de ventes, d'achats, de règlements et de lignes de
// banque, chaque écriture passée par PasserEcriture comme la saisie le fait.

#include <QString>

namespace generateur {

struct Options {
    // Dossier des données où la base et maroval.ini se trouvent à la fin (créé au besoin).
    QString dossier;
    // Nombre approximatif de lignes d'Ecriture voulues.
    int lignesVisees = 10000;
    // Mois d'activité, à partir de janvier (1 à 12).
    int mois = 12;
    int clients = 40;
    int fournisseurs = 15;
    unsigned graine = 2024;
    // Un règlement de client paie exactement sa plus ancienne facture encore due (sinon un
    // montant au hasard) : le lettrage trouve alors ses paires.
    bool reglementsDesFactures = false;
    // Construire la base en mémoire (/dev/shm) puis la copier : les écritures durables n'y
    // coûtent presque rien, et c'est PasserEcriture qu'on mesure ailleurs, pas le disque.
    bool enMemoire = true;
};

struct Resultat {
    QString cle;       // clé de l'exercice généré
    int ecritures = 0; // opérations passées
    int lignes = 0;    // lignes d'Ecriture
    double secondes = 0;
};

// Numéro de société et exercice de la comptabilité générée.
inline constexpr int NumSoc = 1;
inline constexpr int Exercice = 2024;

// Fabrique la base dans options.dossier (une base déjà là est remplacée) et la laisse
// fermée.
Resultat Generer(const Options& options);

// Ouvre la base d'un dossier généré et met la session sur son exercice.
void OuvrirGenere(const QString& dossier);

// Une année de cette taille générée dans dossier, puis ouverte (les autres options par
// défaut) : ce que les essais d'écrans et les captures demandent.
Resultat GenererPuisOuvrir(const QString& dossier, int lignesVisees, int clients, int fournisseurs);

// Une vente de trois lignes (client, ventes, TVA collectée) posée dans wSaisie, prête à
// être passée ; montant hors taxe en centimes.
void PoserVente(int client, long long htCentimes, const QString& dateAAAAMMJJ);

// Passe ce que wSaisie contient, au numéro suivant de l'exercice ouvert.
void PasserSaisie();

} // namespace generateur
