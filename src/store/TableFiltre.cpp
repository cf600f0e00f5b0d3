#include "store/Acces.h"
#include "store/Routines.h"

table::Filtre LireFiltre(const QString& numero) {
    // Bornes comparées comme des textes, première plage qui convient.
    table::Filtre r;
    auto& q = Requete("SELECT " + acces::NomsDe<table::Filtre>().liste +
                      " FROM \"filtre\" WHERE BorneInf<=? and BorneSup>=? ORDER BY rowid LIMIT 1");
    q.bind(1, numero.toStdString());
    q.bind(2, numero.toStdString());
    if (q.executeStep()) {
        acces::Lecteur l{q};
        champs::Visiter(r, l);
        q.reset();
    }
    return r;
}
