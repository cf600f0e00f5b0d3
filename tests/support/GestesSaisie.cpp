#include "support/GestesSaisie.h"

#include "support/GestesGrille.h"
#include "support/SessionEssai.h"

#include "ui/Grille.h"

#include <QStringList>

namespace essai {

QString ListeDuCode(const QString& code) {
    static const QStringList codes = {"E1", "R1", "E2", "R2"};
    return QStringLiteral("Tree%1").arg(codes.indexOf(code.trimmed()) + 1);
}

bool TaperMontant(QWidget* ecran, const QString& numero, const QString& montant) {
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
