#pragma once
// Le peintre des états : met un Document en pages A4 (calcul sans dessin, pour savoir le
// nombre de pages avant d'écrire « Page n / N »), puis peint chaque page sur une imprimante
// ou un fichier PDF. En-tête et titres des colonnes sur chaque page, pied « Page n / N »,
// reports des colonnes de montants, jamais une ligne coupée entre deux pages.

#include "reports/Document.h"

#include <QString>
#include <functional>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace rapport {

// Dimensions en millimètres.
struct Gabarit {
    double largeur = 210, hauteur = 297;      // A4 portrait
    double marge = 12;                        // sur les quatre côtés
    double entete = 20, titres = 6, pied = 7; // blocs fixes de chaque page
    double ligne = 4.6;                       // hauteur d'une ligne de l'état
};

struct Page {
    std::size_t debut = 0, fin = 0; // lignes [debut, fin) du document
    bool reportEnHaut = false;      // ligne « Report » sous les titres
    bool aReporterEnBas = false;    // ligne « A reporter » au bas
};

// Lignes du document réparties en pages ; un document vide fait une page.
std::vector<Page> MettreEnPages(const Document& document, const Gabarit& gabarit = {});

// Avancement pendant la peinture : page faite, total ; faux pour arrêter.
using Avancement = std::function<bool(int page, int total)>;

// Peint toutes les pages sur l'appareil (imprimante, PDF) ; rend le nombre de pages peintes
// (moins que le total si l'avancement a demandé l'arrêt) ; total reçoit le nombre prévu.
int Peindre(const Document& document, QPagedPaintDevice& appareil, const QString& dateEdition,
            const Avancement& avancement = {}, const Gabarit& gabarit = {}, int* total = nullptr);

// L'état dans un fichier PDF, remplacé seulement une fois complet. Rend l'erreur en
// français, vide si tout s'est bien passé ; pages reçoit le nombre de pages.
QString EcrirePdf(const Document& document, const QString& chemin, const QString& dateEdition,
                  int* pages = nullptr, const Avancement& avancement = {});

} // namespace rapport
