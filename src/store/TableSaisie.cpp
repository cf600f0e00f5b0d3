#include "store/Acces.h"
#include "store/Routines.h"

bool LireDerniereSaisie(table::Saisie& r) {
    auto& q = Requete("SELECT " + acces::NomsDe<table::Saisie>().liste +
                      " FROM \"wSaisie\" WHERE wFin=0 ORDER BY rowid DESC LIMIT 1");
    if (!q.executeStep()) return false;
    acces::Lecteur l{q};
    champs::Visiter(r, l);
    q.reset();
    return true;
}

void AjouterSaisie(table::Saisie& r) {
    acces::AjouterLigne("wSaisie", r);
}
