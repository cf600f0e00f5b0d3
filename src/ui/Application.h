#pragma once
// L'application de Maroval : toute exception sortie d'un événement est l'erreur d'exécution
// du programme (une boîte critique, puis la fin), jamais un arrêt silencieux.

#include <QApplication>
#include <QString>
#include <stdexcept>

namespace ui {

// Erreur d'exécution voulue par le code (indice hors limites, base en échec...).
class ErreurExecution : public std::runtime_error {
public:
    explicit ErreurExecution(const QString& description);
    QString Description() const { return QString::fromUtf8(what()); }
};

[[noreturn]] void LeverErreurExecution(const QString& description);

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
