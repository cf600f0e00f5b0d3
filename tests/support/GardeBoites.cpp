#include "support/GardeBoites.h"

#include <QApplication>
#include <QMessageBox>

namespace essai {

GardeBoites::GardeBoites() {
    minuterie.setInterval(100);
    QObject::connect(&minuterie, &QTimer::timeout, [this] {
        auto* boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!boite || boite->objectName() != QLatin1String("Boite")) return;
        inattendues << boite->text();
        boite->reject();
    });
    minuterie.start();
}

} // namespace essai
