#include "store/Acces.h"
#include "store/Routines.h"

bool LireSection(const QString& cle, int numero, table::Section& r) {
    return acces::LireLigne("Section", "NumSection=? and CleCpt=?", r, numero, cle);
}

void AjouterSection(table::Section& r) {
    acces::AjouterLigne("Section", r);
}
