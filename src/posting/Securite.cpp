#include "posting/Securite.h"

#include "store/Base.h"

void PurgerCleTemporaire() {
    Base().exec("DELETE FROM Compte WHERE CleCpt='000000'");
    Base().exec("DELETE FROM Budget WHERE CleCpt='000000'");
    Base().exec("DELETE FROM Constante WHERE CleCon='000000'");
}
