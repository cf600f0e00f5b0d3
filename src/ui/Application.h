#pragma once
// L'application de Maroval : toute exception sortie d'un événement est l'erreur d'exécution
// du programme (une boîte critique, puis la fin), jamais un arrêt silencieux.

#include "base/ErreurExecution.h"

#include <QApplication>
#include <QString>

namespace ui {

// Montre la boîte "Erreur d'exécution" puis termine le programme (code 1). Une seconde
// erreur pendant la première termine sans autre boîte.
void SignalerErreurExecution(const QString& description);

class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);
    bool notify(QObject* objet, QEvent* evenement) override;
};

} // namespace ui
