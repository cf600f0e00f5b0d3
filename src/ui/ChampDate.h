#pragma once
// Champ de date masqué : JJ/MM/AAAA, "__/__/____" quand il est vide.

#include <QString>

class QLineEdit;

namespace ui {

// Texte d'une date vide, tel que le champ le montre.
QString DateVide();

// Pose le masque "99/99/9999" (caractère de remplissage '_') et vide le champ.
void PreparerChampDate(QLineEdit* champ);
// Le texte montré : "__/__/____" pour un champ vide, "12/03/2024" sinon ; les chiffres
// manquants d'une date incomplète restent des '_'.
QString TexteDate(const QLineEdit* champ);
// Met une date JJ/MM/AAAA dans le champ ; un texte vide vide le champ.
void FixerTexteDate(QLineEdit* champ, const QString& date);

} // namespace ui
