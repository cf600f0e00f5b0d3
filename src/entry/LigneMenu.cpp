#include "entry/LigneMenu.h"

#include "base/ErreurExecution.h"
#include "store/Acces.h"

bool LireLigneMenu(const QString& cle, table::Tableau& ligne) {
    return acces::LireLigne("Tableau", "tMenuLigne=?", ligne, cle);
}

int ClasseAutorisee(const table::Tableau& ligne, int n) {
    // Le tableau des classes n'a que vingt places.
    if (n < 1 || n > 20)
        LeverErreurExecution(QStringLiteral("Indice en dehors de la plage (classe %1 du menu %2).")
                                 .arg(n)
                                 .arg(ligne.tMenuLigne.trimmed()));
    return ligne.tMenuAutorise.mid((n - 1) * 4, 3).trimmed().toInt();
}
