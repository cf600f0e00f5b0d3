#pragma once
// Taille et position des fenêtres et largeurs des colonnes de leurs grilles, gardées dans
// les réglages de l'utilisateur : sections "<Ecran>Form" (left, top, width, height) et
// "<Ecran><Grille>" (col0, col1...), l'écran et la grille nommés par leur objectName.

#include <QList>
#include <QString>

class QWidget;

namespace ui {

class Grille;

// A l'ouverture : les valeurs gardées, à défaut la taille de l'écran lui-même et les
// largeurs d'origine des colonnes ("vide").
void RestaurerPersonalisations(QWidget* ecran, const QList<ui::Grille*>& grilles);
// A la fermeture.
void SauverPersonalisations(const QWidget* ecran, const QList<ui::Grille*>& grilles);

} // namespace ui
