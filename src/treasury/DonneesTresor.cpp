#include "treasury/DonneesTresor.h"

#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <algorithm>
#include <optional>
#include <sqlite3.h>

namespace tresor {

namespace {

Montant M(const SQLite::Statement& q, int i) {
    return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
}

QString T(const SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText());
}

// Une transaction, sauf si l'appelant en tient déjà une : le lettrage d'un compte se fait
// seul (bouton du lettrage manuel) ou dans celui de toute une classe.
class Ensemble {
public:
    Ensemble() {
        if (sqlite3_get_autocommit(Base().getHandle()) != 0) t.emplace(Base());
    }
    void Valider() {
        if (t) t->commit();
    }

private:
    std::optional<SQLite::Transaction> t;
};

struct LigneALettrer {
    QString cle; // celle de la ligne : sa société et son exercice
    double numEcr = 0;
    Montant mntEcr;
    int marque = 0;
};

} // namespace

std::vector<CompteTiers> Comptes(const QString& cle, int menu, bool seulementNonSoldes) {
    std::string sql = "SELECT NumCpt, LibCpt, ErCpt, Sde, CumD, CumC, Solde FROM Compte WHERE "
                      "CleCpt = ? AND Menu = ?";
    if (seulementNonSoldes) sql += " AND Solde <> 0";
    sql += " ORDER BY NumCpt";
    SQLite::Statement q(Base(), sql);
    q.bind(1, cle.toStdString());
    q.bind(2, menu);
    std::vector<CompteTiers> comptes;
    while (q.executeStep())
        comptes.push_back(
            {T(q, 0).trimmed(), T(q, 1), T(q, 2).trimmed(), M(q, 3), M(q, 4), M(q, 5), M(q, 6)});
    return comptes;
}

int NombreComptes(const QString& cle, int menu) {
    SQLite::Statement q(Base(), "SELECT count(*) FROM Compte WHERE CleCpt = ? AND Menu = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, menu);
    return q.executeStep() ? q.getColumn(0).getInt() : 0;
}

void LettrerUnCpt(const QString& numCpt, int exercice, Montant sde) {
    // Les clés des exercices de la plage, une par une : la recherche passe alors par l'index
    // des comptes au lieu de parcourir toutes les lignes de la plage.
    QStringList cles;
    for (int annee = exercice; annee <= session().ExerciceCourant; ++annee)
        cles << CleExercice(session().NumSocCourante, annee);
    if (cles.isEmpty()) return;
    std::string sql = "SELECT CleCpt, NumEcr, MntEcr FROM Ecriture WHERE NumCptEcr = ? AND "
                      "Lettrage = 0 AND CleCpt IN (?";
    for (qsizetype i = 1; i < cles.size(); ++i)
        sql += ", ?";
    // Triées ici et non par la requête : un ORDER BY ferait préférer l'index des numéros,
    // qui parcourt toutes les lignes de l'exercice pour chaque compte.
    sql += ")";
    SQLite::Statement q(Base(), sql);
    q.bind(1, numCpt.trimmed().toStdString());
    for (qsizetype i = 0; i < cles.size(); ++i)
        q.bind(static_cast<int>(i) + 2, cles[i].toStdString());
    std::vector<LigneALettrer> lues;
    while (q.executeStep())
        lues.push_back({T(q, 0), q.getColumn(1).getDouble(), M(q, 2), 0});
    // Les lignes ouvertes par numéro croissant : l'ordre chronologique promis.
    std::sort(lues.begin(), lues.end(), [](const LigneALettrer& a, const LigneALettrer& b) {
        return a.cle != b.cle ? a.cle < b.cle : a.numEcr < b.numEcr;
    });
    std::vector<LigneALettrer> positives, negatives;
    for (const LigneALettrer& l : lues) {
        // Une ligne à zéro ne peut rien lettrer : ni le solde de début ni une facture.
        if (l.mntEcr > Montant())
            positives.push_back(l);
        else if (l.mntEcr < Montant())
            negatives.push_back(l);
    }
    if (positives.empty() && negatives.empty()) return;

    // Phase 1 : un seul règlement égal au solde de début entier.
    if (sde > Montant()) {
        for (LigneALettrer& n : negatives)
            if (n.mntEcr.abs() == sde) {
                n.marque = 2;
                break;
            }
    } else if (sde < Montant()) {
        for (LigneALettrer& p : positives)
            if (p.mntEcr == sde.abs()) {
                p.marque = 2;
                break;
            }
    }
    // Phase 2 : chaque facture avec le premier règlement libre du même montant. Seule la
    // marque du règlement compte : une facture marquée 2 reste candidate, et repasse à 1.
    if (!positives.empty() && !negatives.empty())
        for (LigneALettrer& p : positives)
            for (LigneALettrer& n : negatives)
                if (n.marque == 0 && n.mntEcr.abs() == p.mntEcr) {
                    p.marque = 1;
                    n.marque = 1;
                    break;
                }

    Ensemble ensemble;
    SQLite::Statement marquer(Base(),
                              "UPDATE Ecriture SET Lettrage = ? WHERE CleCpt = ? AND NumEcr = ?");
    for (const auto* liste : {&positives, &negatives})
        for (const LigneALettrer& l : *liste) {
            if (l.marque == 0) continue;
            marquer.bind(1, l.marque);
            marquer.bind(2, l.cle.toStdString());
            marquer.bind(3, l.numEcr);
            marquer.exec();
            marquer.reset();
        }
    ensemble.Valider();
}

void LettrerClasse(const QString& cle, int menu, int exercice,
                   const std::function<void(int)>& avance) {
    SQLite::Transaction t(Base());
    SQLite::Statement soldes(Base(), "UPDATE Ecriture SET Lettrage = 1 WHERE CleCpt = ? AND "
                                     "NumCptEcr = ? AND Lettrage = 0");
    int faits = 0;
    for (const CompteTiers& c : Comptes(cle, menu)) {
        LettrerUnCpt(c.numero, exercice, c.sde);
        // Phase 3 : un compte soldé n'a plus rien d'ouvert, paires trouvées ou non.
        if (c.solde.estNul()) {
            soldes.bind(1, cle.toStdString());
            soldes.bind(2, c.numero.toStdString());
            soldes.exec();
            soldes.reset();
        }
        if (avance) avance(++faits);
    }
    t.commit();
}

std::vector<LigneTiers> Lignes(const QString& cle, const QString& numCpt, Choix choix) {
    std::string sql = "SELECT NumEcr, DateEcr, DateEcheance, LibEcr, MntEcr, DCEcr, Lettrage "
                      "FROM Ecriture WHERE CleCpt = ? AND NumCptEcr = ?";
    if (choix == Choix::Ouvertes) sql += " AND Lettrage = 0";
    if (choix == Choix::Pointees) sql += " AND Lettrage = 1";
    // « +NumEcr » : la recherche passe par l'index des comptes, le tri se fait ensuite.
    sql += " ORDER BY +NumEcr";
    SQLite::Statement q(Base(), sql);
    q.bind(1, cle.toStdString());
    q.bind(2, numCpt.trimmed().toStdString());
    std::vector<LigneTiers> lignes;
    while (q.executeStep())
        lignes.push_back({q.getColumn(0).getDouble(), T(q, 1).trimmed(), T(q, 2), T(q, 3), M(q, 4),
                          T(q, 5).trimmed() == QLatin1String("D"), q.getColumn(6).getInt()});
    return lignes;
}

Montant SommeLettrage(const QString& cle, const QString& numCpt, int lettrage) {
    SQLite::Statement q(Base(), "SELECT COALESCE(SUM(MntEcr), 0) FROM Ecriture WHERE CleCpt = ? "
                                "AND NumCptEcr = ? AND Lettrage = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, numCpt.trimmed().toStdString());
    q.bind(3, lettrage);
    q.executeStep();
    return M(q, 0);
}

Montant SoldeDebutALettrer(const QString& cle, const QString& numCpt, Montant sde) {
    return sde + SommeLettrage(cle, numCpt, 2);
}

Montant MontantLigne(const QString& cle, double numEcr) {
    SQLite::Statement q(Base(), "SELECT MntEcr FROM Ecriture WHERE CleCpt = ? AND NumEcr = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, numEcr);
    return q.executeStep() ? M(q, 0) : Montant();
}

void Marquer(const QString& cle, const std::vector<double>& numeros, int lettrage) {
    SQLite::Transaction t(Base());
    SQLite::Statement q(Base(), "UPDATE Ecriture SET Lettrage = ? WHERE CleCpt = ? AND NumEcr = ?");
    for (const double numero : numeros) {
        q.bind(1, lettrage);
        q.bind(2, cle.toStdString());
        q.bind(3, numero);
        q.exec();
        q.reset();
    }
    t.commit();
}

void Delettrer(const QString& cle, const std::vector<QString>& comptes) {
    SQLite::Transaction t(Base());
    SQLite::Statement q(Base(),
                        "UPDATE Ecriture SET Lettrage = 0 WHERE CleCpt = ? AND NumCptEcr = ?");
    for (const QString& numero : comptes) {
        q.bind(1, cle.toStdString());
        q.bind(2, numero.trimmed().toStdString());
        q.exec();
        q.reset();
    }
    t.commit();
}

Previsions CalculerPrevisions(const QString& cle, int menu) {
    Previsions p;
    SQLite::Statement q(Base(), "SELECT MntEcr, MoisEcheance FROM Ecriture WHERE CleCpt = ? AND "
                                "NumCptEcr = ? AND Lettrage = 0");
    for (const CompteTiers& c : Comptes(cle, menu, true)) {
        p.cumSde += SoldeDebutALettrer(cle, c.numero, c.sde);
        q.bind(1, cle.toStdString());
        q.bind(2, c.numero.toStdString());
        while (q.executeStep()) {
            const Montant m = M(q, 0);
            if (m > Montant()) {
                // Sans mois d'échéance (0, vide ou illisible) : la case des factures sans date.
                const int mois = T(q, 1).trimmed().toInt();
                p.mois[mois >= 1 && mois <= 12 ? mois - 1 : 12] += m;
            } else {
                p.cumReg += m;
            }
        }
        q.reset();
    }
    return p;
}

Montant CalcSdeNLettre(const QString& cle, int menu) {
    Montant resultat;
    for (const CompteTiers& c : Comptes(cle, menu, true))
        resultat += SoldeDebutALettrer(cle, c.numero, c.sde);
    return resultat;
}

std::vector<LigneOuverte> LignesOuvertes(const QString& cle, int menu, int filtreEcheance) {
    std::string sql =
        "SELECT c.NumCpt, c.LibCpt, e.NumEcr, e.LibEcr, e.DateEcheance, e.MntEcr FROM Compte c "
        "INNER JOIN Ecriture e ON c.NumCpt = e.NumCptEcr WHERE c.CleCpt = ?1 AND e.CleCpt = ?1 "
        "AND e.Lettrage = 0 AND c.Menu = ?2";
    if (filtreEcheance == 1) sql += " AND e.DateEcheance = '________'";
    if (filtreEcheance == 2) sql += " AND e.DateEcheance <> '________'";
    // Le blanc souligné suit les chiffres : les lignes sans date viennent après les autres.
    sql += " ORDER BY e.DateEcheance, e.NumEcr";
    SQLite::Statement q(Base(), sql);
    q.bind(1, cle.toStdString());
    q.bind(2, menu);
    std::vector<LigneOuverte> lignes;
    while (q.executeStep())
        lignes.push_back(
            {T(q, 0).trimmed(), T(q, 1), T(q, 3), T(q, 4), q.getColumn(2).getDouble(), M(q, 5)});
    return lignes;
}

void NormaliserPointage() {
    Base().exec("UPDATE Ecriture SET Lettrage = 1 WHERE Lettrage = 255");
}

Montant Pointer(const QString& cle, double numEcr, bool pointee) {
    const Montant montant = MontantLigne(cle, numEcr);
    SQLite::Statement q(Base(), "UPDATE Ecriture SET Lettrage = ? WHERE CleCpt = ? AND NumEcr = ?");
    q.bind(1, pointee ? 1 : 0);
    q.bind(2, cle.toStdString());
    q.bind(3, numEcr);
    q.exec();
    return montant;
}

} // namespace tresor
