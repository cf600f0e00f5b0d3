#include "store/Acces.h"
#include "store/Routines.h"

bool LireConstante(const QString& cle, table::Constante& r) {
    return acces::LireLigne("Constante", "CleCon=?", r, cle);
}

void AjouterConstante(table::Constante& r) {
    acces::AjouterLigne("Constante", r);
}

bool MajConstante(const QString& cle, table::Constante& r) {
    return acces::MajLigne("Constante", "CleCon=?", r, cle);
}
