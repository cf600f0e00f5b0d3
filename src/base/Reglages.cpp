#include "base/Reglages.h"

#include <QSettings>

namespace {
QSettings Reglages() {
    return QSettings(QStringLiteral("Maroval"), QStringLiteral("Maroval"));
}
QString Chemin(const QString& section, const QString& cle) {
    return section + '/' + cle;
}
} // namespace

QString LireReglage(const QString& section, const QString& cle, const QString& defaut) {
    return Reglages().value(Chemin(section, cle), defaut).toString();
}

void EcrireReglage(const QString& section, const QString& cle, const QString& valeur) {
    QSettings r = Reglages();
    r.setValue(Chemin(section, cle), valeur);
    r.sync();
}

void EffacerReglage(const QString& section, const QString& cle) {
    QSettings r = Reglages();
    r.remove(cle.isEmpty() ? section : Chemin(section, cle));
    r.sync();
}
