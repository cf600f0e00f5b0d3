#pragma once
// L'application de Maroval : toute exception sortie d'un événement est l'erreur d'exécution
// du programme (une boîte critique, puis la fin), jamais un arrêt silencieux.

#include "base/ErreurExecution.h"

#include <QApplication>
#include <QString>
#include <functional>

namespace ui {

// Montre la boîte "Erreur d'exécution" puis termine le programme (code 1). Une seconde
// erreur pendant la première termine sans autre boîte.
void SignalerErreurExecution(const QString& description);

// Exécute le travail hors de la boucle des événements (démarrage, boucle elle-même) : une
// exception qui en sort est l'erreur d'exécution, jamais un arrêt brutal du processus.
// Rend le code du travail, ou celui de la fin demandée.
int ExecuterSousGarde(const std::function<int()>& travail);

// Texte de la boîte pour une exception : celui que la couche qui l'a levée sait donner
// (la base nomme son fichier et la raison du système), sinon son what().
QString DescriptionErreur(const std::exception& erreur);
// Branché par la couche des données ; rend un texte vide pour une exception qu'elle ne
// connaît pas.
void FixerDescriptionErreur(std::function<QString(const std::exception&)> description);

class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);
    bool notify(QObject* objet, QEvent* evenement) override;
};

} // namespace ui
