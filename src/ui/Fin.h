#pragma once
// Fin du programme : Quitter, après une restauration, écriture du marqueur impossible,
// erreur d'exécution. Ferme la base et termine le processus sans autre logique.

#include <exception>
#include <functional>

namespace ui {

// Exception lancée à la place de la sortie du processus quand un test observe la fin.
struct FinProgramme : std::exception {
    int code = 0;
    explicit FinProgramme(int c) : code(c) {}
    const char* what() const noexcept override { return "fin du programme"; }
};

// Termine le programme. En production : base fermée, réglages écrits, sortie du processus.
// En test (ObserverFin actif) : base fermée, fenêtres modales fermées, FinDemandee() vrai,
// puis FinProgramme est lancée ; le gestionnaire des événements la reçoit sans bruit.
[[noreturn]] void TerminerProgramme(int code = 0);

// Vrai dès qu'une fin a été demandée (utile aux tests et après un exec()).
bool FinDemandee();
int CodeFin();

// Les tests s'abonnent : la fin ne quitte plus le processus. Remis à zéro par
// ObserverFin(false).
void ObserverFin(bool actif);

// Fermeture de la base, branchée par la couche des données (ui ne connaît pas la base).
void FixerFermetureBase(std::function<void()> fermeture);

} // namespace ui
