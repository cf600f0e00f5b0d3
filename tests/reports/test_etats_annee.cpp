// Chaque état du catalogue sur une année générée, écrit en PDF puis relu par pdftotext :
// titre et formules communes, les comptes ou lignes que la sélection garde et aucun autre
// (comptés à part dans la base d'extraction), totaux de la vérification des livres,
// « Page n / N » sur chaque page et autant de pages que la mise en pages l'a calculé.
#include "support/DossierEssai.h"
#include "support/Outils.h"

#include "Generateur.h"
#include "posting/Verification.h"
#include "reports/Catalogue.h"
#include "reports/DonneesEtats.h"
#include "reports/Peintre.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Application.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

using namespace rapport;

namespace {

struct Relu {
    QStringList pages; // texte de chaque page
    int calculees = 0; // pages annoncées par la mise en pages
};

Relu EcrireEtRelire(const Document& d, const QString& chemin) {
    Relu r;
    const QString erreur = EcrirePdf(d, chemin, QStringLiteral("31/12/2024"), &r.calculees);
    if (!erreur.isEmpty()) qFatal("%s", qPrintable(erreur));
    r.pages = essai::PagesPdf(chemin);
    if (r.pages.isEmpty()) qFatal("pdftotext ne relit pas %s", qPrintable(chemin));
    return r;
}

// Les lignes relues dont le premier mot est un nombre entier (numéros de comptes ou
// d'écritures, selon l'état), ce premier mot seul ; pour les lignes d'écritures, le numéro
// suivi de sa date (l'en-tête d'un compte du livre commence aussi par un numéro).
QStringList PremiersNombres(const Relu& r, bool suivisDUneDate = false) {
    static const QRegularExpression nombre(QStringLiteral("^\\s*(\\d+)\\s"));
    static const QRegularExpression ecriture(
        QStringLiteral("^\\s*(\\d+)\\s+\\d\\d/\\d\\d/\\d\\d\\d\\d\\s"));
    QStringList sortie;
    for (const QString& page : r.pages)
        for (const QString& ligne : page.split(QLatin1Char('\n'))) {
            const auto m = (suivisDUneDate ? ecriture : nombre).match(ligne + QLatin1Char(' '));
            if (m.hasMatch()) sortie << m.captured(1);
        }
    return sortie;
}

QStringList Requete(const QString& chemin, const std::string& sql, const QString& cle) {
    SQLite::Database db(QFile::encodeName(chemin).toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement q(db, sql);
    q.bind(1, cle.toStdString());
    QStringList sortie;
    while (q.executeStep())
        sortie << QString::fromUtf8(q.getColumn(0).getText()).trimmed();
    return sortie;
}

} // namespace

class TestEtatsAnnee : public QObject {
    Q_OBJECT
    support::DossierEssai dossier;
    QString sauve, principale;
    int numero = 0;

    // Titre, formules communes, pages numérotées et comptées.
    Relu Verifier(const Document& d) {
        const Relu r =
            EcrireEtRelire(d, dossier.Fichier(QStringLiteral("etat%1.pdf").arg(++numero)));
        [&] {
            QCOMPARE(r.pages.size(), r.calculees);
            QVERIFY(r.calculees >= 1);
            for (int n = 1; n <= r.pages.size(); ++n) {
                const QString& page = r.pages[n - 1];
                QVERIFY2(page.contains(QStringLiteral("Page %1 / %2").arg(n).arg(r.calculees)),
                         qPrintable(d.titre + QStringLiteral(" page %1").arg(n)));
                QVERIFY2(page.contains(d.titre), qPrintable(d.titre));
                QVERIFY(page.contains(session().NomSocCourante));
                QVERIFY(page.contains(QStringLiteral("01/01/2024")));
                QVERIFY(page.contains(QStringLiteral("31/12/2024")));
                QVERIFY(page.contains(QStringLiteral("Maroval Version ") + MAROVAL_VERSION));
            }
        }();
        return r;
    }

    static QString Tout(const Relu& r) { return r.pages.join(QLatin1Char('\f')); }

    // La ligne relue qui contient ce texte (la dernière s'il y en a plusieurs).
    static QString LigneDe(const Relu& r, const QString& texte) {
        QString trouvee;
        for (const QString& ligne : Tout(r).split(QRegularExpression(QStringLiteral("[\n\f]"))))
            if (ligne.contains(texte)) trouvee = ligne;
        return trouvee;
    }

    static void ExigerDansLOrdre(const QString& ligne, const QStringList& textes) {
        qsizetype depuis = 0;
        for (const QString& t : textes) {
            const qsizetype ou = ligne.indexOf(t, depuis);
            QVERIFY2(ou >= 0, qPrintable(t + QStringLiteral(" dans « ") + ligne + "»"));
            depuis = ou + t.size();
        }
    }

private slots:
    void initTestCase() {
        generateur::GenererPuisOuvrir(dossier.Chemin(), 3000, 25, 8);
        session().DateSaisieCourante = QStringLiteral("31/12/2024");
        QCOMPARE(etats::ExtraireExercice(dossier.Chemin(), CleCourante()),
                 etats::Extraction::Faite);
        sauve = dossier.Fichier(QStringLiteral("sauve.mdb"));
        principale = dossier.Fichier(QStringLiteral("maroval.mdb"));
    }
    void cleanupTestCase() { FermerBase(); }

    void balances() {
        const QList<std::pair<QString, std::string>> portees = {
            {"G", " AND Menu <> 160 AND Menu <> 170"},
            {"C", " AND Menu = 170"},
            {"F", " AND Menu = 160"}};
        for (const auto& [code, portee] : portees) {
            const Document d = EtatBalance(code);
            const Relu r = Verifier(d);
            const QStringList attendus =
                Requete(sauve,
                        "SELECT NumCpt FROM Compte WHERE CleCpt = ?" + portee +
                            " AND NOT (Sde = 0 AND CumD = 0 AND CumC = 0) ORDER BY NumCpt",
                        CleCourante());
            QVERIFY(attendus.size() > (code == "F" ? 3 : 8));
            QCOMPARE(PremiersNombres(r), attendus);
            Montant debit, credit, soldeDebit, soldeCredit;
            TotauxBalance(code, debit, credit, soldeDebit, soldeCredit);
            QVERIFY(!debit.estNul());
            ExigerDansLOrdre(LigneDe(r, QStringLiteral("Totaux")),
                             {TexteMontant(debit), TexteMontant(credit), TexteMontant(soldeDebit),
                              TexteMontant(soldeCredit)});
        }
    }

    // Le livre entier : chaque compte que la requête du livre garde a son total, chaque
    // ligne de ces comptes est imprimée une fois, et aucune autre.
    void grandLivre() {
        const Document d = EtatGrandLivre(QString());
        const Relu r = Verifier(d);
        QVERIFY(r.pages.size() > 5);
        const std::string selection = " FROM Compte c JOIN Ecriture e ON e.NumCptEcr = c.NumCpt "
                                      "WHERE c.CleCpt = ? AND c.Menu <> 155 AND c.Menu <> 165 "
                                      "AND NOT (c.Sde = 0 AND c.CumD = 0 AND c.CumC = 0)";
        const QStringList comptes = Requete(
            sauve, "SELECT DISTINCT c.NumCpt" + selection + " ORDER BY c.NumCpt", CleCourante());
        QStringList totaux;
        static const QRegularExpression total(QStringLiteral("Total du compte (\\d+)"));
        for (auto it = total.globalMatch(Tout(r)); it.hasNext();)
            totaux << it.next().captured(1);
        QCOMPARE(totaux, comptes);
        QStringList lignes = Requete(
            sauve, "SELECT CAST(e.NumEcr AS INTEGER)" + selection + " ORDER BY c.NumCpt, e.NumEcr",
            CleCourante());
        QCOMPARE(PremiersNombres(r, true), lignes);
        Montant debit, credit, soldeDebit, soldeCredit;
        TotauxBalance(QStringLiteral("G"), debit, credit, soldeDebit, soldeCredit);
        ExigerDansLOrdre(LigneDe(r, QStringLiteral("Totaux")),
                         {TexteMontant(debit), TexteMontant(credit)});
        ExigerDansLOrdre(LigneDe(r, QStringLiteral("Soldes")),
                         {TexteMontant(soldeDebit), TexteMontant(soldeCredit)});
        // Les pages suivantes commencent par le report de la précédente.
        for (int n = 1; n < r.pages.size(); ++n)
            QVERIFY2(r.pages[n].contains(QStringLiteral("Report")), qPrintable(QString::number(n)));
    }

    // Un compte seul : ses lignes et aucune autre.
    void editionDUnCompte() {
        const Document d = EtatGrandLivre(QStringLiteral("512"));
        const Relu r = Verifier(d);
        QCOMPARE(PremiersNombres(r, true),
                 Requete(sauve,
                         "SELECT CAST(NumEcr AS INTEGER) FROM Ecriture WHERE CleCpt = ? AND "
                         "NumCptEcr = '512' ORDER BY NumEcr",
                         CleCourante()));
        QVERIFY(Tout(r).contains(QStringLiteral("Total du compte 512")));
        QVERIFY(!Tout(r).contains(QStringLiteral("Total du compte 7071")));
    }

    void journaux() {
        const QStringList codes = {"*", "V", "A", "T", "D", "I"};
        for (const QString& code : codes)
            for (int mois : {0, 3}) {
                const Document d = EtatJournal(code, mois);
                QCOMPARE(d.titre, TitreJournal(code, mois));
                const Relu r = Verifier(d);
                std::string sql = "SELECT CAST(NumEcr AS INTEGER) FROM Ecriture WHERE CleCpt = ?";
                if (code != "*") sql += " AND Journal = '" + code.toStdString() + "'";
                if (mois) sql += " AND substr(DateEcr, 5, 2) = '03'";
                const QStringList attendues =
                    Requete(sauve, sql + " ORDER BY NumEcr", CleCourante());
                if (code == "*" || code == "V") QVERIFY(attendues.size() > 50);
                QCOMPARE(PremiersNombres(r, true), attendues);
                Montant debit, credit;
                TotauxJournal(code, debit, credit, mois);
                ExigerDansLOrdre(LigneDe(r, QStringLiteral("Totaux")),
                                 {TexteMontant(debit), TexteMontant(credit)});
            }
    }

    void centralisateur() {
        etats::RemplirJourCent(CleCourante(), session().NomsMois, {});
        const Relu r = Verifier(EtatJourCent());
        const QString tout = Tout(r);
        const QStringList codes = {"*", "V", "A", "T", "D", "I"};
        const QStringList noms = {"Journal Général",
                                  "Journal des Ventes",
                                  "Journal des Achats",
                                  "Journal de Trésorerie",
                                  "Journal des Opérations Diverses",
                                  "Journal d'Inventaire"};
        for (int i = 0; i < codes.size(); ++i) {
            Montant debit, credit;
            TotauxJournal(codes[i], debit, credit, 0);
            ExigerDansLOrdre(LigneDe(r, QStringLiteral("Total ") + noms[i]),
                             {TexteMontant(debit), TexteMontant(credit)});
            TotauxJournal(codes[i], debit, credit, 3);
            if (!debit.estNul()) QVERIFY(tout.contains(TexteMontant(debit)));
        }
        QCOMPARE(tout.count(QStringLiteral("Mars")), 6);
    }

    void bilanEtResultat() {
        for (const char* code : {"B", "R"}) {
            etats::RemplirWbilan(CleCourante(), code);
            const Relu r = Verifier(EtatResulBilan(code));
            const bool bilan = code == QLatin1String("B");
            const auto colonne = [&](const char* er, int menu) {
                return Requete(
                    principale,
                    std::string("SELECT NumCpt FROM Compte WHERE CleCpt = ? AND ErCpt = '") + er +
                        "' AND Menu <> " + std::to_string(menu) + " AND Solde <> 0 ORDER BY NumCpt",
                    CleCourante());
            };
            const QStringList gauche = colonne(bilan ? "E1" : "E2", bilan ? 170 : 525);
            const QStringList droite = colonne(bilan ? "R1" : "R2", bilan ? 160 : 625);
            QVERIFY(!gauche.isEmpty() && !droite.isEmpty());
            // Chaque ligne relue : le numéro de gauche en tête, celui de droite plus loin.
            const QString tout = Tout(r);
            for (const QString& n : gauche + droite)
                QVERIFY2(tout.contains(QRegularExpression("\\s" + n + "\\s")), qPrintable(n));
            QCOMPARE(PremiersNombres(r), gauche);
            QVERIFY(tout.contains(bilan ? QStringLiteral("ACTIF") : QStringLiteral("CHARGES")));
            QVERIFY(tout.contains(bilan ? QStringLiteral("PASSIF") : QStringLiteral("PRODUITS")));
        }
    }

    void planComptable() {
        const Relu r = Verifier(EtatPlan());
        QVERIFY(r.pages.size() > 3);
        QCOMPARE(PremiersNombres(r),
                 Requete(principale, "SELECT NumCpt FROM Compte WHERE CleCpt = ? ORDER BY NumCpt",
                         CleCourante()));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestEtatsAnnee test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_etats_annee.moc"
