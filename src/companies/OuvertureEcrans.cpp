#include "companies/OuvertureEcrans.h"

namespace ecran {

namespace {

Releve& ReleveCourant() {
    static Releve r;
    return r;
}

} // namespace

void FixerReleve(Releve releve) {
    ReleveCourant() = std::move(releve);
}

bool OuvertureRelevee(const QString& nomEcran) {
    return ReleveCourant() && ReleveCourant()(nomEcran);
}

} // namespace ecran
