#include "yearend/DonneesCloture.h"

#include "base/Valeur.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Transaction.h>
#include <vector>

namespace cloture {

namespace {

// Numéro au sens du programme : valeur des chiffres de tête ("400" oui, "4001" non).
const char* const ComptesFixes = "CAST(NumCpt AS INTEGER) IN (400, 410, 699, 799)";
const char* const NonVide = "(Sde <> 0 OR CumD <> 0 OR CumC <> 0)";

std::string S(const QString& t) {
    return t.toStdString();
}

void Executer(const std::string& sql, const QString& a, const QString& b = QString()) {
    SQLite::Statement q(Base(), sql);
    q.bind(1, S(a));
    if (q.getBindParameterCount() > 1) q.bind(2, S(b));
    q.exec();
}

// Les comptes de cle qui répondent à la condition, posés sous suivante avec leurs codes ;
// un compte qui y est déjà garde son libellé et ses codes.
void CopierComptes(const QString& cle, const QString& suivante, const std::string& condition) {
    Executer("INSERT OR IGNORE INTO Compte (CleCpt, NumCpt, LibCpt, ErCpt, Bilan, Tiers, Menu, "
             "Fisc) SELECT ?2, NumCpt, LibCpt, ErCpt, Bilan, Tiers, Menu, Fisc FROM Compte "
             "WHERE CleCpt = ?1 AND (" +
                 condition + ") ORDER BY rowid",
             cle, suivante);
}

QString AnneeSuivante(const QString& date) {
    const QString d = date.trimmed();
    return QString::number(static_cast<int>(ValeurNumerique(d.left(4))) + 1) + d.right(4);
}

} // namespace

QString CleSuivante() {
    const Session& s = session();
    return CleExercice(s.NumSocCourante, s.ExerciceCourant + 1);
}

bool ConstanteExiste(const QString& cle) {
    table::Constante k;
    return LireConstante(cle, k) && k.CleCon.trimmed() == cle;
}

void CreerPlanSuivant(const QString& cle, const QString& suivante,
                      const table::Constante& courante) {
    SQLite::Transaction t(Base());
    // Comptes utilisés, comptes fixes, et comptes de résultat dont la prévision n'est pas nulle.
    CopierComptes(cle, suivante,
                  std::string(ComptesFixes) + " OR " + NonVide +
                      " OR (NumCpt > '59999999' AND EXISTS (SELECT 1 FROM Budget b WHERE "
                      "b.CleCpt = ?1 AND b.NumBud = Compte.NumCpt AND b.BudFut <> 0))");
    Executer("INSERT OR IGNORE INTO Budget (CleCpt, NumBud, LibBud, ERBUD) SELECT CleCpt, "
             "NumCpt, LibCpt, ErCpt FROM Compte WHERE CleCpt = ?1 AND NumCpt > '59999999' AND "
             "NumCpt NOT IN ('699', '799') ORDER BY rowid",
             suivante);
    {
        SQLite::Statement q(Base(),
                            "INSERT OR IGNORE INTO Constante (CleCon, DateSaisie, DateDebut, "
                            "DateFin, OuvertureClos, SymboleMon) VALUES (?, ?, ?, ?, 1, 'E')");
        const QString debut = AnneeSuivante(courante.DateDebut);
        q.bind(1, S(suivante));
        q.bind(2, S(debut));
        q.bind(3, S(debut));
        q.bind(4, S(AnneeSuivante(courante.DateFin)));
        q.exec();
    }
    AjouterSectionsSuivant(cle, suivante);
    t.commit();
}

void AjouterSectionsSuivant(const QString& cle, const QString& suivante) {
    Executer("INSERT OR IGNORE INTO Section (CleCpt, NumSection, NomSection) SELECT ?2, "
             "NumSection, NomSection FROM Section WHERE CleCpt = ?1 ORDER BY rowid",
             cle, suivante);
}

void TransfererSoldes(const QString& cle, const QString& suivante,
                      const std::function<void(int)>& jauge) {
    const auto avancer = [&](int n) {
        if (jauge) jauge(n);
    };
    SQLite::Transaction t(Base());

    // Comptes créés depuis le plan de l'exercice suivant, puis ses soldes remis à zéro ; ses
    // propres mouvements (CumD, CumC) restent.
    CopierComptes(cle, suivante, std::string(ComptesFixes) + " OR " + NonVide);
    Executer("UPDATE Compte SET Sde = 0, Solde = 0, SoldeAnte = 0 WHERE CleCpt = ?", suivante);
    avancer(20);

    // Soldes : à-nouveaux des comptes de bilan, solde antérieur de tous.
    {
        SQLite::Statement lus(Base(), std::string("SELECT NumCpt, Solde FROM Compte WHERE "
                                                  "CleCpt = ? AND ") +
                                          NonVide + " ORDER BY rowid");
        lus.bind(1, S(cle));
        SQLite::Statement bilan(Base(), "UPDATE Compte SET Sde = ?, SoldeAnte = ? WHERE "
                                        "CleCpt = ? AND NumCpt = ?");
        SQLite::Statement resultat(Base(), "UPDATE Compte SET SoldeAnte = ? WHERE CleCpt = ? "
                                           "AND NumCpt = ?");
        while (lus.executeStep()) {
            const QString numero = QString::fromUtf8(lus.getColumn(0).getText());
            const std::int64_t solde =
                ArrondiMontant(Montant::depuisDixMilliemes(lus.getColumn(1).getInt64()))
                    .dixMilliemes();
            if (numero < QLatin1String("59999999")) {
                bilan.bind(1, solde);
                bilan.bind(2, solde);
                bilan.bind(3, S(suivante));
                bilan.bind(4, S(numero));
                bilan.exec();
                bilan.reset();
            } else {
                resultat.bind(1, solde);
                resultat.bind(2, S(suivante));
                resultat.bind(3, S(numero));
                resultat.exec();
                resultat.reset();
            }
        }
    }
    Executer("UPDATE Compte SET Solde = Sde + CumD + CumC WHERE CleCpt = ?", suivante);
    avancer(50);

    // Totaux d'ouverture de l'exercice suivant ; les collectifs 400 et 410 sont déjà comptés
    // par les comptes de tiers.
    {
        SQLite::Statement q(
            Base(), std::string("SELECT "
                                "SUM(CASE WHEN ErCpt = 'E1' THEN Sde ELSE 0 END), "
                                "SUM(CASE WHEN ErCpt = 'E1' THEN 0 ELSE Sde END), "
                                "SUM(CASE WHEN ErCpt = 'E1' THEN Solde ELSE 0 END), "
                                "SUM(CASE WHEN ErCpt = 'E1' THEN 0 ELSE Solde END), "
                                "SUM(CASE WHEN Bilan = 'SN' THEN Solde ELSE 0 END), "
                                "SUM(CASE WHEN Bilan = 'DAP' THEN Solde ELSE 0 END), "
                                "SUM(CASE WHEN Bilan = 'BIENS' THEN Solde ELSE 0 END), "
                                "SUM(CASE WHEN Bilan = 'DAR' THEN Solde ELSE 0 END), "
                                "SUM(CASE WHEN Bilan = 'MD' THEN Solde ELSE 0 END) "
                                "FROM Compte WHERE CleCpt = ? AND ") +
                        NonVide +
                        " AND NumCpt < '59999999' AND CAST(NumCpt AS INTEGER) NOT IN (400, 410)");
        q.bind(1, S(suivante));
        q.executeStep();
        avancer(60);
        const auto somme = [&q](int i) {
            return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
        };
        table::Constante k;
        if (LireConstante(suivante, k)) {
            k.SDE1 = somme(0);
            k.SDR1 = somme(1);
            k.E1 = somme(2);
            k.R1 = somme(3);
            k.SN = somme(4);
            k.DAP = somme(5);
            k.BIENS = somme(6);
            k.DAR = somme(7);
            k.MD = somme(8);
            MajConstante(suivante, k);
        }
    }
    avancer(75);

    // Budget : le réel de l'année passe en réel antérieur, la prévision devient le budget ;
    // la prévision de l'année d'après de l'exercice suivant est effacée à chaque passe.
    const std::string budgetsQualifies =
        "FROM Budget WHERE CleCpt = ? AND (Reel <> 0 OR BudFut <> 0) ORDER BY rowid";
    {
        SQLite::Statement q(Base(), "INSERT OR IGNORE INTO Budget (CleCpt, NumBud, LibBud, "
                                    "ERBUD) SELECT ?2, NumBud, LibBud, ERBUD FROM Budget WHERE "
                                    "CleCpt = ?1 AND (Reel <> 0 OR BudFut <> 0) ORDER BY rowid");
        q.bind(1, S(cle));
        q.bind(2, S(suivante));
        q.exec();
    }
    Executer("Update Budget Set ReelA = 0, Budfut=0,ReelAM01=0, ReelAM02=0,ReelAM03=0, "
             "ReelAM04=0,ReelAM05=0, ReelAM06=0,ReelAM07=0, ReelAM08=0,ReelAM09=0, "
             "ReelAM10=0,ReelAM11=0, "
             "ReelAM12=0,BudfutM01=0,BudfutM02=0,BudfutM03=0,BudfutM04=0,BudfutM05=0,"
             "BudfutM06=0,BudfutM07=0,BudfutM08=0,BudfutM09=0,BudfutM10=0,BudfutM11=0,"
             "BudfutM12=0 WHERE CleCpt=?",
             suivante);
    avancer(90);
    {
        std::string colonnes = "NumBud, Reel, BudFut";
        std::string affectations = "ReelA = ?, \"Budget\" = ?";
        for (int m = 1; m <= 12; ++m) {
            const std::string mm = (m < 10 ? "0" : "") + std::to_string(m);
            colonnes += ", ReelM" + mm + ", BudFutM" + mm;
            affectations += ", ReelAM" + mm + " = ?, BudgetM" + mm + " = ?";
        }
        SQLite::Statement lus(Base(), "SELECT " + colonnes + " " + budgetsQualifies);
        lus.bind(1, S(cle));
        SQLite::Statement maj(Base(), "UPDATE Budget SET " + affectations +
                                          " WHERE CleCpt = ? AND NumBud = ?");
        const auto arrondi = [&lus](int i) {
            return ArrondiMontant(Montant::depuisDixMilliemes(lus.getColumn(i).getInt64()))
                .dixMilliemes();
        };
        while (lus.executeStep()) {
            for (int i = 1; i <= 26; ++i)
                maj.bind(i, arrondi(i));
            maj.bind(27, S(suivante));
            maj.bind(28, lus.getColumn(0).getString());
            maj.exec();
            maj.reset();
        }
    }
    t.commit();
    avancer(100);
}

} // namespace cloture
