#pragma once
// L'horloge unique du programme : dates du jour, heures, noms de fichiers par défaut,
// mois courant. Les tests la fixent.

#include <QDate>
#include <QDateTime>

namespace ui {

QDateTime Maintenant();
QDate Aujourdhui();
// Fige l'horloge (une date invalide la rend au temps réel).
void FixerHorloge(const QDateTime& instant);

} // namespace ui
