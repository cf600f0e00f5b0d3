#include "store/Acces.h"
#include "store/Routines.h"

bool LireWbilan(int clef, table::Wbilan& r) {
    return acces::LireLigne("Wbilan", "Clef=?", r, clef);
}

void AjouterWbilan(table::Wbilan& r) {
    acces::AjouterLigne("Wbilan", r);
}

bool MajWbilan(int clef, table::Wbilan& r) {
    return acces::MajLigne("Wbilan", "Clef=?", r, clef);
}
