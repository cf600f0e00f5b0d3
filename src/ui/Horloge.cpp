#include "ui/Horloge.h"

namespace ui {

namespace {
QDateTime instantFige;
}

QDateTime Maintenant() {
    return instantFige.isValid() ? instantFige : QDateTime::currentDateTime();
}

QDate Aujourdhui() {
    return Maintenant().date();
}

void FixerHorloge(const QDateTime& instant) {
    instantFige = instant;
}

} // namespace ui
