#include "store/Acces.h"
#include "store/Routines.h"

bool LireBudget(const QString& cle, const QString& numero, table::Budget& r) {
    return acces::LireLigne("Budget", "NumBud=? and CleCpt=?", r, numero.trimmed(), cle);
}

void AjouterBudget(table::Budget& r) {
    acces::AjouterLigne("Budget", r);
}

bool MajBudget(const QString& cle, const QString& numero, table::Budget& r) {
    return acces::MajLigne("Budget", "NumBud=? and CleCpt=?", r, numero.trimmed(), cle);
}
