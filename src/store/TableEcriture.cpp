#include "store/Acces.h"
#include "store/Routines.h"

bool LireEcriture(const QString& cle, double numero, table::Ecriture& r) {
    return acces::LireLigne("Ecriture", "NumEcr=? and CleCpt=?", r, numero, cle);
}

void AjouterEcriture(table::Ecriture& r) {
    acces::AjouterLigne("Ecriture", r);
}
