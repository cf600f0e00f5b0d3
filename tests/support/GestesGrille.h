#pragma once
// Gestes d'utilisateur sur une grille : cliquer une ligne ou une cellule, taper dans
// l'éditeur ouvert et le valider par Entrée (la vue valide après la touche, au tour
// suivant de la boucle d'événements : ces gestes laissent passer les événements).

#include "support/PiloteModal.h"

namespace ui {
class Grille;
}

namespace support {

// Clic sur une cellule (l'écran décide s'il ouvre l'éditeur).
bool CliquerCellule(ui::Grille* grille, int ligne, int colonne, bool doubleClic = false);
// Remplace le texte de l'éditeur ouvert et appuie sur Entrée ; vrai si l'éditeur s'est
// fermé (faux s'il n'y en avait pas ou si la validation l'a gardé ouvert).
bool TaperDansCellule(ui::Grille* grille, const QString& texte, Qt::Key fin = Qt::Key_Return);
// Ouvre l'éditeur de la cellule, tape et valide.
bool SaisirCellule(ui::Grille* grille, int ligne, int colonne, const QString& texte);

// Les mêmes dans une fenêtre pilotée, la grille trouvée par son objectName.
Action CliquerCelluleDe(const QString& grille, int ligne, int colonne);
Action TaperDansCelluleDe(const QString& grille, const QString& texte);

} // namespace support
