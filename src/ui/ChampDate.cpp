#include "ui/ChampDate.h"

#include <QLineEdit>

namespace ui {

namespace {
const QString masqueDate = QStringLiteral("99/99/9999;_");
}

QString DateVide() {
    return QStringLiteral("__/__/____");
}

void PreparerChampDate(QLineEdit* champ) {
    if (!champ) return;
    champ->setInputMask(masqueDate);
    champ->clear();
}

QString TexteDate(const QLineEdit* champ) {
    if (!champ) return DateVide();
    // Avec le masque, displayText garde les '_' des places vides ; text() les retire.
    QString texte = champ->displayText();
    if (champ->inputMask().isEmpty() && texte.isEmpty()) return DateVide();
    return texte;
}

void FixerTexteDate(QLineEdit* champ, const QString& date) {
    if (!champ) return;
    if (date.isEmpty() || date == DateVide())
        champ->clear();
    else
        champ->setText(date);
}

} // namespace ui
