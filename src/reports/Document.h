#pragma once
// Le modèle d'un état imprimé, sans aucun dessin : titres, colonnes, lignes de détail, de
// groupe et de totaux. Chaque état du catalogue le remplit ; un seul peintre le met en pages.

#include "base/Montant.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

namespace rapport {

enum class Alignement { Gauche, Droite, Centre };

struct Colonne {
    QString titre;
    // Part de la largeur utile de la page ; les parts sont rapportées à leur somme.
    double part = 1;
    Alignement alignement = Alignement::Gauche;
    // Colonne de montants dont le peintre tient le report d'une page à l'autre.
    bool reportee = false;
};

enum class Genre {
    Detail,       // une ligne de données
    EnTeteGroupe, // le début d'un groupe (un compte du grand livre), en gras
    TotalGroupe,  // le total d'un groupe, en gras, filet au-dessus
    TotalGeneral, // les totaux de l'état, en gras, double filet
    Blanc,        // une ligne vide entre deux groupes
};

struct Ligne {
    Genre genre = Genre::Detail;
    QStringList cellules;
    // Montants des colonnes reportées, dans l'ordre de ces colonnes (lignes de détail).
    QList<Montant> reportes;
};

struct Document {
    QString titre;      // CRTitre
    QString societe;    // CRNomSoc
    QString debut, fin; // CRDebExo, CRFinExo (JJ/MM/AAAA)
    QString dateSaisie; // CRDateSaisie
    QString version;    // CRVersion
    QList<Colonne> colonnes;
    std::vector<Ligne> lignes;

    void Ajouter(Genre genre, QStringList cellules, QList<Montant> reportes = {}) {
        lignes.push_back({genre, std::move(cellules), std::move(reportes)});
    }
    QString Periode() const;
    bool ADesReports() const;
};

// Montant comme l'imprime un état : groupes de trois chiffres, virgule, deux décimales,
// vide pour zéro quand vide0 est vrai.
QString TexteMontant(Montant montant, bool vide0 = false);

} // namespace rapport
