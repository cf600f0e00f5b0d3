#include "consultation/DonneesComptes.h"

#include "session/Session.h"
#include "store/Base.h"

namespace comptes {

bool SoldeDebiteur(const QString& erCpt, Montant solde) {
    return erCpt.startsWith(u'E') == (solde >= Montant());
}

namespace {

const char* Condition(Rubrique r) {
    switch (r) {
    case Rubrique::Actif:
        return " AND ErCpt='E1' AND Menu<>170";
    case Rubrique::Passif:
        return " AND ErCpt='R1' AND Menu<>160";
    case Rubrique::Charges:
        return " AND ErCpt='E2' AND Menu<>525";
    case Rubrique::Produits:
        return " AND ErCpt='R2' AND Menu<>625";
    }
    return " AND 0";
}

QString Texte(SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText()).trimmed();
}

Montant Somme(SQLite::Statement& q, int i) {
    return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
}

std::vector<Compte> Lire(const std::string& suite) {
    auto& q = Requete("SELECT NumCpt, LibCpt, ErCpt, Sde, CumD, CumC, Solde FROM Compte WHERE "
                      "CleCpt=?" +
                      suite);
    q.bind(1, CleCourante().toStdString());
    std::vector<Compte> comptes;
    while (q.executeStep())
        comptes.push_back({Texte(q, 0), Texte(q, 1), Texte(q, 2), Somme(q, 3), Somme(q, 4),
                           Somme(q, 5), Somme(q, 6)});
    q.reset();
    return comptes;
}

} // namespace

std::vector<Compte> DeLaBalance(Portee portee) {
    switch (portee) {
    case Portee::Clients:
        return Lire(" AND Menu=170 ORDER BY NumCpt");
    case Portee::Fournisseurs:
        return Lire(" AND Menu=160 ORDER BY NumCpt");
    case Portee::Generale:
        break;
    }
    return Lire(" AND Menu<>160 AND Menu<>170 ORDER BY NumCpt");
}

std::vector<Compte> ParCreation() {
    return Lire(" ORDER BY rowid");
}

std::vector<Compte> DeLaRubrique(Rubrique rubrique) {
    return Lire(std::string(Condition(rubrique)) + " ORDER BY rowid");
}

Montant SommeSoldes(Rubrique rubrique) {
    auto& q = Requete(std::string("SELECT COALESCE(SUM(Solde), 0) FROM Compte WHERE CleCpt=?") +
                      Condition(rubrique));
    q.bind(1, CleCourante().toStdString());
    q.executeStep();
    const Montant total = Somme(q, 0);
    q.reset();
    return total;
}

} // namespace comptes
