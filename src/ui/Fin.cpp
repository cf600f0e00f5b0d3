#include "ui/Fin.h"

#include "ui/EcranModal.h"

#include <QCoreApplication>
#include <QSettings>
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
    if (qApp) PileModale::FermerTout();
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
