#pragma once
// L'aide du programme : pages HTML françaises livrées en ressources (":/data/aide/<numéro>.html"
// par numéro de contexte, ":/data/aide/menu.html" pour l'index), montrées dans une fenêtre
// non modale "Aide". Une page absente montre un texte d'excuse au lieu d'échouer.

#include <QString>

class QDialog;

namespace ui {

void AfficherAide(int contexte);
void AfficherAideIndex();

// Chemin de ressource de la page d'un contexte.
QString PageAide(int contexte);
QString PageAideIndex();
// Texte montré quand la page n'existe pas.
QString TexteAideAbsente();

// La fenêtre d'aide si elle existe (objectName "Aide", navigateur "TexteAide").
QDialog* FenetreAide();

} // namespace ui
