#include "reports/DonneesEtats.h"

#include "store/Base.h"
#include "store/BaseSauve.h"
#include "store/Routines.h"

#include <QDir>
#include <QFile>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>

namespace etats {

namespace {

Montant M(const SQLite::Statement& q, int i) {
    return Montant::depuisDixMilliemes(q.getColumn(i).getInt64());
}

QString T(const SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText());
}

std::string CheminExtraction(const QString& dossier) {
    return QFile::encodeName(CheminBaseSauve(dossier)).toStdString();
}

// La base d'extraction, en lecture seule : les états n'y changent rien.
SQLite::Database OuvrirExtraction(const QString& dossier) {
    return SQLite::Database(CheminExtraction(dossier), SQLite::OPEN_READONLY);
}

} // namespace

void LireGrandLivre(const QString& dossier, const QString& cle, const QString& compte,
                    const std::function<void(const CompteDuLivre&)>& surCompte,
                    const std::function<void(const LigneDuLivre&)>& surLigne) {
    // La sélection de l'état sur la requête GrandLiv, triée comme l'état se lit : compte,
    // puis écriture.
    SQLite::Database db = OuvrirExtraction(dossier);
    std::string sql = "SELECT NumCpt, LibCpt, ErCpt, Sde, CumD, CumC, Solde, NumEcr, DateEcr, "
                      "Journal, LibEcr, MntEcr, DCEcr FROM GrandLiv WHERE CleCpt = ?1 AND Menu "
                      "<> 155 AND Menu <> 165 AND NOT (Sde = 0 AND CumD = 0 AND CumC = 0)";
    if (!compte.isEmpty()) sql += " AND NumCpt = ?2";
    sql += " ORDER BY NumCpt, NumEcr";
    SQLite::Statement q(db, sql);
    q.bind(1, cle.toStdString());
    if (!compte.isEmpty()) q.bind(2, compte.trimmed().toStdString());
    QString courant;
    bool premier = true;
    while (q.executeStep()) {
        const QString numero = QString::fromUtf8(q.getColumn(0).getText());
        if (premier || numero != courant) {
            premier = false;
            courant = numero;
            surCompte({numero, QString::fromUtf8(q.getColumn(1).getText()),
                       QString::fromUtf8(q.getColumn(2).getText()), M(q, 3), M(q, 4), M(q, 5),
                       M(q, 6)});
        }
        LigneDuLivre l;
        l.numero = q.getColumn(7).getDouble();
        l.dateEcr = QString::fromUtf8(q.getColumn(8).getText());
        l.journal = QString::fromUtf8(q.getColumn(9).getText());
        l.libelle = QString::fromUtf8(q.getColumn(10).getText());
        l.montant = M(q, 11);
        l.debit = QString::fromUtf8(q.getColumn(12).getText()).trimmed() == QLatin1String("D");
        surLigne(l);
    }
}

std::vector<CompteDuLivre> ComptesDeLaBalance(const QString& dossier, const QString& cle,
                                              const QString& code) {
    // Les trois portées : générale hors tiers, clients, fournisseurs.
    const char* portee = code == QLatin1String("C")   ? " AND Menu = 170"
                         : code == QLatin1String("F") ? " AND Menu = 160"
                                                      : " AND Menu <> 160 AND Menu <> 170";
    SQLite::Database db = OuvrirExtraction(dossier);
    SQLite::Statement q(db, std::string("SELECT NumCpt, LibCpt, ErCpt, Sde, CumD, CumC, Solde "
                                        "FROM Compte WHERE CleCpt = ?") +
                                portee +
                                " AND NOT (Sde = 0 AND CumD = 0 AND CumC = 0) ORDER BY NumCpt");
    q.bind(1, cle.toStdString());
    std::vector<CompteDuLivre> comptes;
    while (q.executeStep())
        comptes.push_back({T(q, 0), T(q, 1), T(q, 2), M(q, 3), M(q, 4), M(q, 5), M(q, 6)});
    return comptes;
}

void LireJournal(const QString& dossier, const QString& cle, const QString& code, int mois,
                 const std::function<void(const LigneDuJournal&)>& surLigne) {
    SQLite::Database db = OuvrirExtraction(dossier);
    std::string sql = "SELECT NumEcr, DateEcr, Journal, NumCptEcr, LibEcr, MntEcr, DCEcr FROM "
                      "Ecriture WHERE CleCpt = ?1";
    if (code != QLatin1String("*")) sql += " AND Journal = ?2";
    // Le mois se lit sur la date d'écriture, quelle que soit l'option des écrans.
    if (mois >= 1 && mois <= 12) sql += " AND substr(DateEcr, 5, 2) = ?3";
    sql += " ORDER BY NumEcr";
    SQLite::Statement q(db, sql);
    q.bind(1, cle.toStdString());
    if (code != QLatin1String("*")) q.bind(2, code.toStdString());
    if (mois >= 1 && mois <= 12)
        q.bind(3, QStringLiteral("%1").arg(mois, 2, 10, QLatin1Char('0')).toStdString());
    while (q.executeStep()) {
        LigneDuJournal l;
        l.numero = q.getColumn(0).getDouble();
        l.dateEcr = T(q, 1);
        l.journal = T(q, 2);
        l.compte = T(q, 3).trimmed();
        l.libelle = T(q, 4);
        l.montant = M(q, 5);
        l.debit = T(q, 6).trimmed() == QLatin1String("D");
        surLigne(l);
    }
}

void RemplirJourCent(const QString& cle, const QStringList& nomsMois,
                     const std::function<void(int)>& jauge) {
    table::Constante k;
    LireConstante(cle, k);
    struct Journal {
        int numero;
        const char* nom;
        const table::Mensuel& debits;
        const table::Mensuel& credits;
    };
    const Journal journaux[] = {{6, "Journal Général", k.TDJGM, k.TCJGM},
                                {1, "Journal des Ventes", k.TDJVM, k.TCJVM},
                                {2, "Journal des Achats", k.TDJAM, k.TCJAM},
                                {3, "Journal de Trésorerie", k.TDJTM, k.TCJTM},
                                {4, "Journal des Opérations Diverses", k.TDJDM, k.TCJDM},
                                {5, "Journal d'Inventaire", k.TDJIM, k.TCJIM}};
    SQLite::Transaction t(Base());
    Base().exec("DELETE FROM JourCent");
    SQLite::Statement q(Base(), "INSERT INTO JourCent (Numero, Journal, Mois, TotDeb, TotCre) "
                                "VALUES (?, ?, ?, ?, ?)");
    int avance = 0;
    for (const Journal& j : journaux) {
        for (int m = 1; m <= 12; ++m) {
            q.bind(1, j.numero);
            q.bind(2, j.nom);
            q.bind(3, nomsMois.value(m - 1).toStdString());
            q.bind(4, j.debits[m].dixMilliemes());
            q.bind(5, j.credits[m].dixMilliemes());
            q.exec();
            q.reset();
        }
        avance += 10;
        if (jauge) jauge(avance);
    }
    t.commit();
}

std::vector<LigneJourCent> LireJourCent() {
    std::vector<LigneJourCent> lignes;
    SQLite::Statement q(Base(), "SELECT Numero, Journal, Mois, TotDeb, TotCre FROM JourCent "
                                "ORDER BY rowid");
    while (q.executeStep())
        lignes.push_back({q.getColumn(0).getInt(), QString::fromUtf8(q.getColumn(1).getText()),
                          QString::fromUtf8(q.getColumn(2).getText()), M(q, 3), M(q, 4)});
    return lignes;
}

void RemplirWbilan(const QString& cle, const QString& code) {
    const bool bilan = code == QLatin1String("B");
    // Les deux colonnes : codes et menus laissés de côté (tiers ou résultat de l'exercice).
    const auto comptes = [&](const char* erCpt, int menuExclu) {
        std::vector<table::Compte> liste;
        SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt = ? "
                                    "AND ErCpt = ? AND Menu <> ? AND Solde <> 0 ORDER BY NumCpt");
        q.bind(1, cle.toStdString());
        q.bind(2, erCpt);
        q.bind(3, menuExclu);
        while (q.executeStep()) {
            table::Compte c;
            c.NumCpt = QString::fromUtf8(q.getColumn(0).getText());
            c.LibCpt = QString::fromUtf8(q.getColumn(1).getText());
            c.Solde = M(q, 2);
            liste.push_back(c);
        }
        return liste;
    };
    SQLite::Transaction t(Base());
    Base().exec("DELETE FROM Wbilan");
    int clef = 0;
    for (const table::Compte& c : comptes(bilan ? "E1" : "E2", bilan ? 170 : 525)) {
        table::Wbilan w;
        w.Clef = ++clef;
        w.Numero1 = c.NumCpt;
        w.Libelle1 = c.LibCpt;
        w.Solde1 = c.Solde;
        AjouterWbilan(w);
    }
    clef = 0;
    for (const table::Compte& c : comptes(bilan ? "R1" : "R2", bilan ? 160 : 625)) {
        table::Wbilan w;
        ++clef;
        if (!::LireWbilan(clef, w)) {
            w = table::Wbilan();
            w.Clef = clef;
            AjouterWbilan(w);
        }
        w.Numero2 = c.NumCpt;
        w.Libelle2 = c.LibCpt;
        w.Solde2 = c.Solde;
        MajWbilan(clef, w);
    }
    t.commit();
}

std::vector<table::Wbilan> LireWbilan() {
    std::vector<table::Wbilan> lignes;
    SQLite::Statement q(Base(), "SELECT Clef, Numero1, Libelle1, Solde1, Numero2, Libelle2, "
                                "Solde2 FROM Wbilan ORDER BY Clef");
    while (q.executeStep()) {
        table::Wbilan w;
        w.Clef = q.getColumn(0).getInt();
        w.Numero1 = QString::fromUtf8(q.getColumn(1).getText());
        w.Libelle1 = QString::fromUtf8(q.getColumn(2).getText());
        w.Solde1 = M(q, 3);
        w.Numero2 = QString::fromUtf8(q.getColumn(4).getText());
        w.Libelle2 = QString::fromUtf8(q.getColumn(5).getText());
        w.Solde2 = M(q, 6);
        lignes.push_back(w);
    }
    return lignes;
}

Extraction ExtraireExercice(const QString& dossier, const QString& cle) {
    if (!RefaireBaseSauve(dossier)) return Extraction::EchecRecopie;
    SauveAttachee sauve(dossier);
    for (const auto& [table, ordre, echec] :
         {std::tuple{"Ecriture", "NumEcr", Extraction::EchecEcriture},
          {"Compte", "NumCpt", Extraction::EchecCompte}}) {
        try {
            CopierVersSauve(table, "CleCpt = ?", {cle.toStdString()}, ordre);
            Base().exec(std::string("CREATE INDEX sauve.") + table + "_Etats ON " + table +
                        (std::string(table) == "Ecriture" ? " (NumCptEcr, NumEcr)" : " (NumCpt)"));
        } catch (const SQLite::Exception&) {
            return echec;
        }
    }
    return Extraction::Faite;
}

void CreerVueGrandLivre(const QString& dossier, const QString& cle, const QString& compte) {
    SQLite::Database db(CheminExtraction(dossier), SQLite::OPEN_READWRITE);
    db.exec("DROP VIEW IF EXISTS GrandLiv");
    // Les valeurs viennent de la base (clé) et de la liste des comptes : guillemets doublés.
    QString c = cle, n = compte.trimmed();
    c.replace(QLatin1Char('\''), QStringLiteral("''"));
    n.replace(QLatin1Char('\''), QStringLiteral("''"));
    QString sql = QStringLiteral("CREATE VIEW GrandLiv AS SELECT * FROM compte INNER JOIN ecriture "
                                 "ON compte.NumCpt = ecriture.NumCptEcr where compte.CleCpt='%1'")
                      .arg(c);
    if (!n.isEmpty()) sql += QStringLiteral(" and compte.numcpt='%1'").arg(n);
    db.exec(sql.toStdString());
}

std::vector<LigneFiscale> LireFiscal() {
    std::vector<LigneFiscale> lignes;
    SQLite::Statement q(Base(), "SELECT NumCpt, Intitule, SoldeAN, MvtDeb, MvtCre, Solde, "
                                "SoldeAnt FROM Fiscal ORDER BY rowid");
    while (q.executeStep())
        lignes.push_back({T(q, 0), T(q, 1), M(q, 2), M(q, 3), M(q, 4), M(q, 5), M(q, 6)});
    return lignes;
}

void TotauxFiscal(Montant& totDeb, Montant& totCre) {
    SQLite::Statement q(Base(), "SELECT COALESCE(SUM(CASE WHEN Solde > 0 THEN Solde END), 0), "
                                "COALESCE(SUM(CASE WHEN Solde < 0 THEN Solde END), 0) FROM Fiscal");
    q.executeStep();
    totDeb = M(q, 0);
    totCre = M(q, 1);
}

std::vector<table::Compte> ComptesDuPlan(const QString& cle) {
    std::vector<table::Compte> liste;
    SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt, ErCpt, Bilan FROM Compte WHERE CleCpt = ? "
                                "ORDER BY NumCpt");
    q.bind(1, cle.toStdString());
    while (q.executeStep()) {
        table::Compte c;
        c.NumCpt = QString::fromUtf8(q.getColumn(0).getText());
        c.LibCpt = QString::fromUtf8(q.getColumn(1).getText());
        c.ErCpt = QString::fromUtf8(q.getColumn(2).getText());
        c.Bilan = QString::fromUtf8(q.getColumn(3).getText());
        liste.push_back(c);
    }
    return liste;
}

} // namespace etats
