#include "store/Base.h"
#include "store/Routines.h"

int CompterLignes(const char* table) {
    auto& q = Requete(std::string("SELECT count(1) FROM \"") + table + '"');
    q.executeStep();
    const int n = q.getColumn(0).getInt();
    q.reset();
    return n;
}

void ViderJourCent() {
    Base().exec("DELETE FROM JourCent");
}
