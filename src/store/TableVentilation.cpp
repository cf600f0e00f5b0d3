#include "store/Acces.h"
#include "store/Routines.h"

bool LireVentilation(const QString& cle, double numero, table::Ventilation& r) {
    // Seule une ligne de la même clé d'exercice compte.
    return acces::LireLigne("Ventilation", "NumVentil=? and CleCpt=?", r, numero, cle);
}

void AjouterVentilation(table::Ventilation& r) {
    acces::AjouterLigne("Ventilation", r);
}

bool MajVentilation(const QString& cle, double numero, table::Ventilation& r) {
    return acces::MajLigne("Ventilation", "NumVentil=? and CleCpt=?", r, numero, cle);
}
