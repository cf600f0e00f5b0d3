#pragma once
// Les colonnes d'une grille de lignes du journal, communes à la consultation des journaux,
// à l'annulation et au changement de libellé.

namespace ui {
class Grille;
}

// Titres des colonnes ; numéros et montants triés par leur valeur, dates par leur jour.
void PreparerColonnesJournal(ui::Grille* grille);
