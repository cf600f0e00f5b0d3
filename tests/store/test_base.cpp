// La base : création au premier démarrage, jamais écrasée ensuite, toutes les tables et
// tous les champs, valeurs par défaut, index d'unicité hors des images.

#include "support/DossierEssai.h"

#include "store/Base.h"
#include "store/Reference.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QtTest>

namespace {

QStringList Mois(const QString& prefixe) {
    QStringList l;
    for (int m = 1; m <= 12; ++m)
        l << prefixe + QStringLiteral("%1").arg(m, 2, 10, QLatin1Char('0'));
    return l;
}

// Les tables et champs attendus, écrits ici indépendamment du fichier de schéma.
QMap<QString, QStringList> TablesAttendues() {
    QMap<QString, QStringList> t;
    t["Societe"] = {"NumSoc", "Nom", "Adresse", "Postal", "Ville", "Téléphone"};
    QStringList c = {"CleCon", "DateSaisie", "DateDebut", "DateFin"};
    for (const char* j : {"G", "V", "A", "T", "D", "I"})
        c << QStringLiteral("TDJ%1").arg(j) << QStringLiteral("TCJ%1").arg(j);
    for (const char* j : {"G", "V", "A", "T", "D", "I"})
        c << Mois(QStringLiteral("TDJ%1M").arg(j)) << Mois(QStringLiteral("TCJ%1M").arg(j));
    c << "LastNumEcrit"
      << "SDE1"
      << "E1"
      << "E2"
      << "SDR1"
      << "R1"
      << "R2"
      << "BIENS"
      << "DAR"
      << "MD"
      << "CONS"
      << "SN"
      << "DAP"
      << "ACTI"
      << "Resultat"
      << "NouveauPC"
      << "TransfertSoldes"
      << "OuvertureClos"
      << "ExerciceClos"
      << "Erreur"
      << "SymboleMon";
    t["Constante"] = c;
    t["Compte"] = QStringList{"CleCpt", "NumCpt", "LibCpt", "ErCpt", "Bilan",    "Tiers",
                              "Sde",    "CumD",   "CumC",   "Solde", "SoldeAnte"}
                  << Mois("CumDM") << Mois("CumCM") << "Menu"
                  << "Fisc";
    t["Ecriture"] = {"CleCpt",       "NumEcr",   "DateEcr",    "DatePiece",
                     "NumCptEcr",    "ErEcr",    "MntEcr",     "LibEcr",
                     "DCEcr",        "Journal",  "Fin",        "DateEcheance",
                     "MoisEcheance", "Lettrage", "SectionEcr", "VentilEcr"};
    t["Budget"] = QStringList{"CleCpt", "NumBud", "LibBud", "ERBUD", "ReelA"}
                  << Mois("ReelAM") << "Budget" << Mois("BudgetM") << "Reel" << Mois("ReelM")
                  << "BudFut" << Mois("BudFutM");
    t["Section"] = {"CleCpt", "NumSection", "NomSection"};
    QStringList v = {"CleCpt", "NumVentil"};
    for (int i = 1; i <= 98; ++i)
        v << QStringLiteral("Ventil%1").arg(i, 2, 10, QLatin1Char('0'));
    t["Ventilation"] = v;
    t["wSaisie"] = {"wNumEcrt",      "wDateEcr",      "wNumCpt",     "wErEcr",     "wLibCpt",
                    "wSolde",        "wTiers",        "wBilan",      "wMenu",      "wDatePiece",
                    "wLibEcr",       "wDateEcheance", "wMntEcr",     "wDCEcr",     "wFin",
                    "wMoisEcheance", "wLettrage",     "wSectionEcr", "wVentilEcr", "wJournal",
                    "wMenuLigne",    "wRappel",       "wSigne",      "wNombre"};
    t["Wbilan"] = {"Clef", "Numero1", "Libelle1", "Solde1", "Numero2", "Libelle2", "Solde2"};
    t["filtre"] = {"BorneInf", "BorneSup", "Message", "ERCPT", "Bilan", "Tiers", "Menu"};
    t["Tableau"] = {"tMenuLigne", "tMenuPrincipal", "tLibMenuprinc", "tPremierMenu",
                    "tJournal",   "tMessage",       "tRappel",       "tNombre",
                    "tSigne",     "tTaille",        "tMenuAutorise"};
    t["PlanType"] = {"NumPlan", "NumCpt", "LibCpt"};
    t["JourCent"] = {"Numero", "Journal", "Mois", "TotDeb", "TotCre"};
    t["Fiscal"] = {"NumCpt", "Intitule", "SoldeAN", "MvtDeb", "MvtCre", "Solde", "SoldeAnt"};
    t["Sauve"] = {"Date", "Societe", "Exercice", "LastNumEcrit", "NumDisk"};
    return t;
}

QStringList Colonnes(const QString& table) {
    QStringList l;
    SQLite::Statement q(Base(), "SELECT name FROM pragma_table_info(?) ORDER BY cid");
    q.bind(1, table.toStdString());
    while (q.executeStep())
        l << QString::fromUtf8(q.getColumn(0).getText());
    return l;
}

} // namespace

class TestBase : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { FermerBase(); }

    void premierDemarrage_creeLaBaseDansLeDossierVide() {
        support::DossierEssai d;
        QVERIFY(!QFile::exists(d.Fichier("maroval.mdb")));
        OuvrirBase(d.Chemin());
        QVERIFY(QFile::exists(d.Fichier("maroval.mdb")));
        QVERIFY(!QFile::exists(d.Fichier("maroval.mdb.creation")));
    }

    void schema_tablesEtChampsExactementCeuxAttendus() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        const auto attendu = TablesAttendues();
        QStringList tables;
        SQLite::Statement q(Base(), "SELECT name FROM sqlite_master WHERE type='table' AND "
                                    "name NOT LIKE 'sqlite_%' ORDER BY name");
        while (q.executeStep())
            tables << QString::fromUtf8(q.getColumn(0).getText());
        QStringList noms = attendu.keys();
        noms.sort();
        tables.sort();
        // Les tables propres au programme s'ajoutent à celles d'origine, et seulement elles.
        QVERIFY(tables.removeOne(QStringLiteral("SirenSociete")));
        QVERIFY(tables.removeOne(QStringLiteral("RepriseEnCours")));
        QCOMPARE(tables, noms);
        for (auto it = attendu.begin(); it != attendu.end(); ++it)
            QCOMPARE(Colonnes(it.key()), it.value());
    }

    void schema_textesComparesSansBlancsDeFin() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012024', '400')");
        SQLite::Statement q(Base(), "SELECT count(*) FROM Compte WHERE NumCpt = '400     '");
        QVERIFY(q.executeStep());
        QCOMPARE(q.getColumn(0).getInt(), 1);
    }

    void schema_valeursParDefautNullesOuVides() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        Base().exec("INSERT INTO wSaisie (wNumCpt) VALUES ('512')");
        SQLite::Statement q(Base(), "SELECT wMntEcr, wLibEcr, wRappel, wSectionEcr FROM wSaisie");
        QVERIFY(q.executeStep());
        QCOMPARE(q.getColumn(0).getInt64(), 0);
        QCOMPARE(QString::fromUtf8(q.getColumn(1).getText()), QString());
        QCOMPARE(q.getColumn(2).getInt(), 0);
        QCOMPARE(q.getColumn(3).getDouble(), 0.0);
    }

    void schema_uniciteHorsImages() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012024', '512')");
        QVERIFY_THROWS_EXCEPTION(
            SQLite::Exception,
            Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012024', '512     ')"));
        // Deux images du même compte pendant une écriture sont permises.
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('000000', '512')");
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('000000', '512')");
        Base().exec("INSERT INTO Constante (CleCon) VALUES ('000000')");
        Base().exec("INSERT INTO Constante (CleCon) VALUES ('000000')");
        Base().exec("INSERT INTO Constante (CleCon) VALUES ('012024')");
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception,
                                 Base().exec("INSERT INTO Constante (CleCon) VALUES ('012024')"));
        Base().exec("INSERT INTO Budget (CleCpt, NumBud) VALUES ('000000', '601')");
        Base().exec("INSERT INTO Budget (CleCpt, NumBud) VALUES ('000000', '601')");
        Base().exec("INSERT INTO Section (CleCpt, NumSection) VALUES ('012024', 1)");
        QVERIFY_THROWS_EXCEPTION(
            SQLite::Exception,
            Base().exec("INSERT INTO Section (CleCpt, NumSection) VALUES ('012024', 1)"));
    }

    void baseExistante_ouverteJamaisEcrasee() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        Base().exec("INSERT INTO Societe (Nom) VALUES ('Boulangerie Martin')");
        FermerBase();
        OuvrirBase(d.Chemin());
        SQLite::Statement q(Base(), "SELECT Nom FROM Societe");
        QVERIFY(q.executeStep());
        QCOMPARE(QString::fromUtf8(q.getColumn(0).getText()), QStringLiteral("Boulangerie Martin"));
    }

    void fermeture_laisseUnSeulFichierAutonome() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        Base().exec("INSERT INTO Societe (Nom) VALUES ('Garage')");
        FermerBase();
        QVERIFY(!QFile::exists(d.Fichier("maroval.mdb-wal")));
        QVERIFY(!QFile::exists(d.Fichier("maroval.mdb-shm")));
        SQLite::Database seule(d.Fichier("maroval.mdb").toStdString(), SQLite::OPEN_READONLY);
        SQLite::Statement q(seule, "SELECT count(*) FROM Societe");
        QVERIFY(q.executeStep());
        QCOMPARE(q.getColumn(0).getInt(), 1);
    }

    void reglages_walSynchroneCompletSansClesEtrangeres() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        QCOMPARE(QString::fromStdString(Base().execAndGet("PRAGMA journal_mode").getString()),
                 QStringLiteral("wal"));
        QCOMPARE(Base().execAndGet("PRAGMA synchronous").getInt(), 2);
        QCOMPARE(Base().execAndGet("PRAGMA foreign_keys").getInt(), 0);
    }

    void reference_chargementDuFichierTexte() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        Base().exec("DELETE FROM filtre");
        const QString contenu =
            QStringLiteral("# commentaire\n"
                           "BorneInf\tBorneSup\tMessage\tERCPT\tBilan\tTiers\tMenu\n"
                           "\n"
                           "512\t512ZZZZZ\tBanques\tE1\tMD\t0\t330\r\n"
                           "411\t411ZZZZZ\tClients – un libellé bien trop long pour tenir dans "
                           "cinquante caractères\tE1\tDAR\t1\t170\n");
        QCOMPARE(ChargerTableReference(Base(), QStringLiteral("filtre"), contenu), 2);
        SQLite::Statement q(Base(), "SELECT Message, Tiers, Menu FROM filtre ORDER BY BorneInf");
        QVERIFY(q.executeStep());
        QCOMPARE(QString::fromUtf8(q.getColumn(0).getText()).size(), 50);
        QCOMPARE(q.getColumn(1).getInt(), 1);
        QCOMPARE(QString::fromUtf8(q.getColumn(2).getText()), QStringLiteral("170"));
        QVERIFY(q.executeStep());
        QCOMPARE(QString::fromUtf8(q.getColumn(0).getText()), QStringLiteral("Banques"));
    }

    void reference_fichierMalFormeRefuse() {
        const FichierReference f = LireFichierReference(QStringLiteral("A\tB\n1\t2\t3\n"));
        QVERIFY(f.erreur.contains(QStringLiteral("ligne 2")));
        const FichierReference g = LireFichierReference(QStringLiteral("A\tB\n1\t2\n#x\n3\t4"));
        QVERIFY(g.erreur.isEmpty());
        QCOMPARE(g.lignes.size(), 2);
    }

    void reference_tablesLivreesChargeesALaCreation() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        for (const char* table : {"filtre", "Tableau", "PlanType"}) {
            QFile f(QStringLiteral(":/data/%1.tsv").arg(QString::fromLatin1(table).toLower()));
            if (!f.exists()) continue;
            QVERIFY(f.open(QIODevice::ReadOnly));
            const int attendu = LireFichierReference(QString::fromUtf8(f.readAll())).lignes.size();
            SQLite::Statement q(Base(), std::string("SELECT count(*) FROM ") + table);
            QVERIFY(q.executeStep());
            QCOMPARE(q.getColumn(0).getInt(), attendu);
            QVERIFY(attendu > 0);
        }
    }

    void largeurs_luesDuSchema() {
        support::DossierEssai d;
        OuvrirBase(d.Chemin());
        QCOMPARE(LargeurColonne("Compte", "NumCpt"), 8);
        QCOMPARE(LargeurColonne("compte", "libcpt"), 40);
        QCOMPARE(LargeurColonne("Tableau", "tMenuAutorise"), 255);
        QCOMPARE(LargeurColonne("Compte", "Solde"), 0);
        QCOMPARE(TexteRange("Capital social   ", 40), QStringLiteral("Capital social"));
        QCOMPARE(TexteRange("123456789", 8), QStringLiteral("12345678"));
        QCOMPARE(TexteLu("400", 8), QStringLiteral("400     "));
    }

    void baseFermee_accesEstUneErreurDExecution() {
        FermerBase();
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, Base());
    }
};

QTEST_GUILESS_MAIN(TestBase)
#include "test_base.moc"
