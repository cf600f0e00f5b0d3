#pragma once
// Gestes sur l'écran de la saisie logique (SaisQuad) : montant tapé dans la liste du compte,
// comme l'utilisateur le fait.

#include <QString>

class QWidget;

namespace essai {

// Liste de SaisQuad d'un code ErCpt.
QString ListeDuCode(const QString& code);

// Clic sur la ligne du compte (l'écran ouvre sa cellule "Montant"), montant tapé, Entrée ;
// vrai si la cellule a été validée.
bool TaperMontant(QWidget* ecran, const QString& numero, const QString& montant);

} // namespace essai
