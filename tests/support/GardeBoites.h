#pragma once
// Garde des boîtes : ferme une boîte montrée pour de vrai (aucune réponse prévue) et la
// note ; le test le vérifie à la fin au lieu de rester bloqué.

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace essai {

class GardeBoites : public QObject {
public:
    GardeBoites();
    QStringList inattendues;

private:
    QTimer minuterie;
};

} // namespace essai
