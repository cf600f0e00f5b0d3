#include "ui/Fin.h"

#include "ui/EcranModal.h"

#include <QApplication>
#include <QDialog>
#include <QSettings>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

namespace ui {

namespace {

bool observer = false;
bool finDemandee = false;
int codeFin = 0;
std::function<void()> fermetureBase;
bool fermetureEnCours = false;

void FermerBase() {
    // Une fermeture qui échoue à son tour ne doit pas relancer la fin.
    if (!fermetureBase || fermetureEnCours) return;
    fermetureEnCours = true;
    try {
        fermetureBase();
    } catch (...) {
    }
    fermetureEnCours = false;
}

// Ferme toutes les fenêtres modales, la plus haute d'abord, puis les écrans de la pile
// que l'écran du dessus avait cachés.
void FermerFenetresModales() {
    if (!qApp) return;
    for (int garde = 0; garde < 100; ++garde) {
        QWidget* haut = QApplication::activeModalWidget();
        if (!haut) break;
        if (auto* dialogue = qobject_cast<QDialog*>(haut))
            dialogue->reject();
        else
            haut->close();
        if (haut->isVisible()) haut->hide();
        if (QApplication::activeModalWidget() == haut) break;
    }
    PileModale::FermerTout();
}

} // namespace

void TerminerProgramme(int code) {
    finDemandee = true;
    codeFin = code;
    FermerBase();
    if (!observer) {
        QSettings("Maroval", "Maroval").sync();
        std::fflush(stdout);
        std::fflush(stderr);
        std::_Exit(code);
    }
    FermerFenetresModales();
    throw FinProgramme(code);
}

bool FinDemandee() {
    return finDemandee;
}

int CodeFin() {
    return codeFin;
}

void ObserverFin(bool actif) {
    observer = actif;
    finDemandee = false;
    codeFin = 0;
}

void FixerFermetureBase(std::function<void()> fermeture) {
    fermetureBase = std::move(fermeture);
}

} // namespace ui
