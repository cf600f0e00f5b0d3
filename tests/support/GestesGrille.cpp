#include "support/GestesGrille.h"

#include "ui/Grille.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QtTest>

namespace support {

namespace {

ui::Grille* TrouverGrille(QWidget* racine, const QString& nom) {
    if (!racine) return nullptr;
    if (auto* g = qobject_cast<ui::Grille*>(racine); g && g->objectName() == nom) return g;
    auto* g = racine->findChild<ui::Grille*>(nom);
    if (!g)
        SignalerEchec(
            QStringLiteral("Grille « %1 » introuvable dans %2").arg(nom, DecrireFenetre(racine)));
    return g;
}

} // namespace

bool CliquerCellule(ui::Grille* grille, int ligne, int colonne, bool doubleClic) {
    if (!grille || ligne < 0 || ligne >= grille->NombreLignes()) {
        SignalerEchec(QStringLiteral("Grille : pas de ligne %1").arg(ligne));
        return false;
    }
    grille->RendreVisible(ligne);
    const QRect cellule = grille->RectangleCellule(ligne, colonne);
    const QPoint point = cellule.topLeft() + QPoint(4, cellule.height() / 2);
    QTest::mouseClick(grille->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    if (doubleClic) {
        QTest::mouseDClick(grille->viewport(), Qt::LeftButton, Qt::NoModifier, point);
        QTest::mouseRelease(grille->viewport(), Qt::LeftButton, Qt::NoModifier, point);
    }
    return true;
}

bool TaperDansCellule(ui::Grille* grille, const QString& texte, Qt::Key fin) {
    auto* editeur = grille ? qobject_cast<QLineEdit*>(grille->Editeur()) : nullptr;
    if (!editeur) {
        SignalerEchec(QStringLiteral("Grille « %1 » : aucune cellule en saisie")
                          .arg(grille ? grille->objectName() : QString()));
        return false;
    }
    editeur->setFocus();
    editeur->selectAll();
    if (texte.isEmpty())
        QTest::keyClick(editeur, Qt::Key_Backspace);
    else
        TaperCaracteres(editeur, texte);
    QTest::keyClick(editeur, fin);
    // La vue valide l'éditeur au tour suivant de la boucle.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    return grille->Editeur() != editeur;
}

bool SaisirCellule(ui::Grille* grille, int ligne, int colonne, const QString& texte) {
    if (!grille || !grille->EditerCellule(ligne, colonne)) {
        SignalerEchec(
            QStringLiteral("Grille : la cellule %1, %2 ne s'ouvre pas").arg(ligne).arg(colonne));
        return false;
    }
    return TaperDansCellule(grille, texte);
}

Action CliquerCelluleDe(const QString& grille, int ligne, int colonne) {
    return [grille, ligne, colonne](QWidget* f) {
        if (ui::Grille* g = TrouverGrille(f, grille)) CliquerCellule(g, ligne, colonne);
    };
}

Action TaperDansCelluleDe(const QString& grille, const QString& texte) {
    return [grille, texte](QWidget* f) {
        if (ui::Grille* g = TrouverGrille(f, grille)) TaperDansCellule(g, texte);
    };
}

} // namespace support
