#pragma once
// Gestes communs des essais de la saisie logique : lignes préparées de wSaisie comme le
// choix des comptes les pose, montants tapés dans les listes de SaisQuad.

#include "support/GestesGrille.h"

#include "chart/DonneesReference.h"
#include "chart/EssaiPlan.h"
#include "entry/DonneesSaisie.h"
#include "entry/LigneMenu.h"
#include "session/Session.h"
#include "ui/Grille.h"

namespace essai {

// Ligne préparée pour un compte, marquée par la case cle (trois caractères).
inline void Preparer(const QString& numero, const QString& cle, double rang) {
    table::Compte c;
    QVERIFY2(LireCompte(Cle, numero, c), qPrintable(numero));
    table::Tableau t;
    QVERIFY2(LireLigneMenu(cle, t), qPrintable(cle));
    table::Saisie r = saisie::LignePreparee(c, t, rang, cle);
    AjouterSaisie(r);
}

// Liste de SaisQuad d'un code ErCpt.
inline QString ListeDuCode(const QString& code) {
    static const QStringList codes = {"E1", "R1", "E2", "R2"};
    return QStringLiteral("Tree%1").arg(codes.indexOf(code.trimmed()) + 1);
}

// Clic sur la ligne du compte (l'écran ouvre sa cellule "Montant"), montant tapé, Entrée.
inline bool TaperMontant(QWidget* ecran, const QString& numero, const QString& montant) {
    const QString liste = ListeDuCode(LireCpt(numero).ErCpt);
    auto* g = ecran->findChild<ui::Grille*>(liste);
    if (!g) return false;
    for (int i = 0; i < g->NombreLignes(); ++i) {
        if (g->Texte(i, 0).trimmed() != numero) continue;
        support::CliquerCellule(g, i, 0);
        return support::TaperDansCellule(g, montant);
    }
    return false;
}

} // namespace essai
