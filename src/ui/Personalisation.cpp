#include "ui/Personalisation.h"

#include "base/Reglages.h"
#include "ui/Grille.h"

#include <QSettings>
#include <QWidget>

namespace ui {

namespace {

QString SectionForm(const QWidget* ecran) {
    return ecran->objectName() + QStringLiteral("Form");
}

QString SectionGrille(const QWidget* ecran, const Grille* grille) {
    return ecran->objectName() + grille->objectName();
}

int Valeur(const QString& section, const QString& cle, int defaut) {
    bool nombre = false;
    const int v = LireReglage(section, cle, QString::number(defaut)).toInt(&nombre);
    return nombre ? v : defaut;
}

} // namespace

void RestaurerPersonalisations(QWidget* ecran, const QList<Grille*>& grilles) {
    const QString section = SectionForm(ecran);
    const QPoint position = ecran->pos();
    const int largeur = Valeur(section, QStringLiteral("width"), ecran->width());
    const int hauteur = Valeur(section, QStringLiteral("height"), ecran->height());
    // Une taille illisible ou nulle garde celle de l'écran.
    if (largeur > 0 && hauteur > 0) ecran->resize(largeur, hauteur);
    ecran->move(Valeur(section, QStringLiteral("left"), position.x()),
                Valeur(section, QStringLiteral("top"), position.y()));
    QSettings reglages(QStringLiteral("Maroval"), QStringLiteral("Maroval"));
    for (Grille* grille : grilles)
        grille->RestaurerLargeurs(reglages, SectionGrille(ecran, grille));
}

void SauverPersonalisations(const QWidget* ecran, const QList<Grille*>& grilles) {
    const QString section = SectionForm(ecran);
    EcrireReglage(section, QStringLiteral("left"), QString::number(ecran->x()));
    EcrireReglage(section, QStringLiteral("top"), QString::number(ecran->y()));
    EcrireReglage(section, QStringLiteral("width"), QString::number(ecran->width()));
    EcrireReglage(section, QStringLiteral("height"), QString::number(ecran->height()));
    QSettings reglages(QStringLiteral("Maroval"), QStringLiteral("Maroval"));
    for (const Grille* grille : grilles)
        grille->SauverLargeurs(reglages, SectionGrille(ecran, grille));
    reglages.sync();
}

} // namespace ui
