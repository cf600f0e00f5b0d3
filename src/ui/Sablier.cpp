#include "ui/Sablier.h"

#include <QCursor>
#include <QGuiApplication>

namespace ui {

Sablier::Sablier() {
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

Sablier::~Sablier() {
    QGuiApplication::restoreOverrideCursor();
}

} // namespace ui
