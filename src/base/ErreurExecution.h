#pragma once
// Erreur d'exécution voulue par le code (indice hors limites, base en échec...). Elle
// remonte jusqu'au gestionnaire des événements, qui montre la boîte puis termine.

#include <QString>
#include <stdexcept>

class ErreurExecution : public std::runtime_error {
public:
    explicit ErreurExecution(const QString& description);
    QString Description() const { return QString::fromUtf8(what()); }
};

[[noreturn]] void LeverErreurExecution(const QString& description);
