#pragma once
// Gestes sur l'écran de la saisie logique (SaisQuad) : montant tapé dans la liste du compte,
// comme l'utilisateur le fait.

#include <QList>
#include <QString>

class QWidget;

namespace essai {

// Liste de SaisQuad d'un code ErCpt.
QString ListeDuCode(const QString& code);

// Clic sur la ligne du compte (l'écran ouvre sa cellule "Montant"), montant tapé, Entrée ;
// vrai si la cellule a été validée.
bool TaperMontant(QWidget* ecran, const QString& numero, const QString& montant);

} // namespace essai

namespace essai {

// Clic double sur la ligne du compte dans la liste Tree1 de ChoixCpt ; faux (et l'échec est
// noté) s'il n'y est pas.
bool ChoisirCompte(QWidget* ecran, const QString& numero);

// Une case de l'opération : son option dans ChoixCpt, le compte choisi, le montant tapé.
struct CaseOperation {
    int option = 1;
    QString numero;
    QString montant;
};

// Une opération de la saisie logique par toute la chaîne des écrans : Choisais, Saislog
// (famille et ligne comptées à partir de 1), ChoixCpt (un compte par case), SaisQuad (un
// montant par compte, le libellé), OK, puis la sortie de ChoixCpt. Rend l'échec du pilote,
// vide si tout s'est passé.
QString SaisirOperation(int famille, int ligne, const QList<CaseOperation>& cases,
                        const QString& libelle);

} // namespace essai
