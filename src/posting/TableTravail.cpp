#include "posting/TableTravail.h"

#include "posting/Filtre.h"
#include "session/Session.h"
#include "store/Acces.h"
#include "store/Base.h"
#include "store/Routines.h"

std::vector<LigneTravail> LireTableTravail() {
    std::vector<LigneTravail> lignes;
    auto& q = Requete("SELECT rowid," + acces::NomsDe<table::Saisie>().liste +
                      " FROM \"wSaisie\" ORDER BY rowid");
    while (q.executeStep()) {
        LigneTravail l;
        l.rowid = q.getColumn(0).getInt64();
        acces::Lecteur lecteur{q, 1};
        champs::Visiter(l.s, lecteur);
        lignes.push_back(std::move(l));
    }
    return lignes;
}

table::Saisie LigneSurCompte(const table::Compte& compte, const QString& journal) {
    table::Saisie r;
    r.wNumCpt = compte.NumCpt;
    r.wErEcr = compte.ErCpt;
    r.wLibCpt = compte.LibCpt;
    r.wSolde = compte.Solde;
    r.wTiers = compte.Tiers;
    r.wBilan = compte.Bilan;
    r.wMenu = compte.Menu;
    r.wJournal = journal;
    return r;
}

void ViderTableTravail() {
    Base().exec("DELETE FROM wSaisie");
}

void EcrireNumeroTravail(std::int64_t rowid, double numero) {
    auto& q = Requete("UPDATE \"wSaisie\" SET wNumEcrt=? WHERE rowid=?");
    q.bind(1, numero);
    q.bind(2, rowid);
    q.exec();
}

void EcrireMontantTravail(std::int64_t rowid, Montant montant) {
    auto& q = Requete("UPDATE \"wSaisie\" SET wMntEcr=? WHERE rowid=?");
    q.bind(1, static_cast<std::int64_t>(montant.dixMilliemes()));
    q.bind(2, rowid);
    q.exec();
}

namespace {

// Montant relu à travers l'image d'affichage des montants, comme s'il avait été tapé.
Montant RelireAffiche(Montant m) {
    return MontantDepuisTexte(FormaterMontant(m, session().FormatMontant));
}

} // namespace

void ConvertirSaisie(const QString& cle) {
    const Session& s = session();
    const std::vector<LigneTravail> lignes = LireTableTravail();
    if (lignes.empty()) return;

    Montant totalD, totalC;
    QString dateEcr, datePiece;
    for (const LigneTravail& l : lignes) {
        dateEcr = l.s.wDateEcr;
        datePiece = l.s.wDatePiece;
        if (l.s.wMntEcr.estNul()) continue;
        const double v = s.MonnaieExercice == QLatin1String("F")
                             ? l.s.wMntEcr.enDouble() * s.TauxConversion
                             : l.s.wMntEcr.enDouble() / s.TauxConversion;
        const Montant converti = ArrondiMontant(Montant::depuisDouble(v));
        EcrireMontantTravail(l.rowid, RelireAffiche(converti));
        const QString dc = l.s.wDCEcr.trimmed();
        if (dc == QLatin1String("D")) totalD += converti.abs();
        if (dc == QLatin1String("C")) totalC += converti.abs();
    }
    if (totalD == totalC) return;

    const Montant ecart = totalC - totalD;
    AssurerCompte(cle, QStringLiteral("677"), QStringLiteral("Perte sur conversions"),
                  QStringLiteral("E2"), QStringLiteral("CONS"));
    AssurerCompte(cle, QStringLiteral("777"), QStringLiteral("Gain sur conversions"),
                  QStringLiteral("R2"), QStringLiteral("ACTI"));

    // La ligne d'écart est une copie de la dernière ligne avec un autre compte et montant.
    table::Saisie r;
    LireDerniereSaisie(r);
    r.wNumEcrt += 1;
    r.wDateEcr = dateEcr;
    r.wDatePiece = datePiece;
    const bool perte = ecart > Montant();
    r.wMntEcr = RelireAffiche(perte ? ecart : -ecart);
    r.wDCEcr = perte ? QStringLiteral("D") : QStringLiteral("C");
    table::Compte c;
    LireCompte(cle, perte ? QStringLiteral("677") : QStringLiteral("777"), c);
    r.wNumCpt = c.NumCpt;
    r.wLibCpt = c.LibCpt;
    r.wErEcr = c.ErCpt;
    r.wBilan = c.Bilan;
    AjouterSaisie(r);
}
