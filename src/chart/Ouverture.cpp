#include "chart/Ouverture.h"

#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Transaction.h>

namespace {

// Le compte de l'exercice ouvert, retouché par modifier puis réécrit ; rien s'il manque.
template <class F> void RetoucherCompte(const QString& numero, F modifier) {
    const QString cle = CleCourante();
    const QString n = numero.trimmed();
    table::Compte c;
    if (!LireCompte(cle, n, c)) return;
    modifier(c);
    c.Solde = c.Sde + c.CumD + c.CumC;
    MajCompte(cle, n, c);
}

Montant* ChampPoste(table::Constante& k, const QString& bilan) {
    const QString b = bilan.trimmed();
    if (b == QLatin1String("BIENS")) return &k.BIENS;
    if (b == QLatin1String("DAR")) return &k.DAR;
    if (b == QLatin1String("MD")) return &k.MD;
    if (b == QLatin1String("SN")) return &k.SN;
    if (b == QLatin1String("DAP")) return &k.DAP;
    return nullptr;
}

} // namespace

void MajSoldeOuverture(const QString& numero, Montant montant) {
    RetoucherCompte(numero, [montant](table::Compte& c) { c.Sde = montant; });
}

void MajCollectif(const QString& numero, Montant ancien, Montant nouveau) {
    RetoucherCompte(numero, [=](table::Compte& c) { c.Sde = c.Sde - ancien + nouveau; });
}

void MajCumulsOuverture(const QString& numero, Montant ancien, Montant nouveau) {
    const QString cle = CleCourante();
    table::Compte c;
    LireCompte(cle, numero.trimmed(), c);
    table::Constante k;
    if (!LireConstante(cle, k)) return;
    const Montant ecart = nouveau - ancien;
    if (c.ErCpt.trimmed() == QLatin1String("E1")) {
        k.SDE1 += ecart;
        k.E1 += ecart;
    } else {
        k.SDR1 += ecart;
        k.R1 += ecart;
    }
    if (Montant* poste = ChampPoste(k, c.Bilan)) *poste += ecart;
    MajConstante(cle, k);
}

void EnregistrerMontantOuverture(const QString& numero, Montant ancien, Montant nouveau,
                                 const QString& collectif) {
    SQLite::Transaction t(Base());
    MajSoldeOuverture(numero, nouveau);
    MajCumulsOuverture(numero, ancien, nouveau);
    if (!collectif.isEmpty()) MajCollectif(collectif, ancien, nouveau);
    t.commit();
}

void MajTotauxOuverture(Montant actif, Montant passif) {
    const QString cle = CleCourante();
    table::Constante k;
    if (!LireConstante(cle, k)) return;
    k.SDE1 = actif;
    k.SDR1 = passif;
    MajConstante(cle, k);
}
