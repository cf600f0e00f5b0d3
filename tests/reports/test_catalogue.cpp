// Les états du catalogue vus par leur modèle, sans dessin : titres et formules communes,
// comptes et lignes gardés par la sélection et aucun autre, totaux égaux à ceux de la
// vérification des livres ; puis la balance écrite en PDF et relue.
#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "posting/Verification.h"
#include "reports/Catalogue.h"
#include "reports/Peintre.h"
#include "session/Session.h"
#include "ui/Application.h"

#include <QProcess>
#include <QtTest>

using namespace rapport;
using essai::Euros;

namespace {

QStringList Cellules(const Document& d, int colonne, Genre genre = Genre::Detail) {
    QStringList sortie;
    for (const Ligne& l : d.lignes)
        if (l.genre == genre) sortie << l.cellules.value(colonne);
    return sortie;
}

Montant Somme(const Document& d, int colonne) {
    Montant s;
    for (const QString& t : Cellules(d, colonne))
        s += MontantDepuisTexte(t);
    return s;
}

void Ecriture(const QString& date, const QString& journal,
              const QList<std::tuple<const char*, const char*, double>>& lignes) {
    session().DateSaisieCourante = date;
    essai::ViderSaisie();
    for (const auto& [numero, sens, montant] : lignes)
        essai::Saisir(QString::fromLatin1(numero), QString::fromLatin1(sens), Euros(montant),
                      journal);
    essai::Passer();
}

} // namespace

class TestCatalogue : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        essai::NouvelleSession(dossier->Chemin());
        essai::OuvrirLivres(dossier->Chemin());
        essai::SoldeOuverture("512", Euros(1000));
        essai::SoldeOuverture("101", Euros(1000));
        Ecriture("05/02/2024", "V", {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
        Ecriture("10/03/2024", "V", {{"411001", "D", 60}, {"707", "C", 50}, {"44571", "C", 10}});
        Ecriture("12/03/2024", "A", {{"607", "D", 80}, {"44566", "D", 16}, {"401001", "C", 96}});
        Ecriture("20/03/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
        session().DateSaisieCourante = QStringLiteral("31/03/2024");
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void balanceGenerale_comptesEtTotaux() {
        const Document d = EtatBalance("G");
        QCOMPARE(d.titre, QStringLiteral("BALANCE GENERALE"));
        QCOMPARE(d.societe, session().NomSocCourante);
        QCOMPARE(d.Periode(), QStringLiteral("Exercice du 01/01/2024 au 31/12/2024"));
        QCOMPARE(d.version, QStringLiteral("Maroval Version ") + MAROVAL_VERSION);
        // Ni tiers, ni collectifs, ni comptes sans montant.
        QCOMPARE(Cellules(d, 0),
                 (QStringList{"101", "400", "410", "44566", "44571", "512", "607", "707"}));
        Montant debit, credit, soldeDebit, soldeCredit;
        TotauxBalance("G", debit, credit, soldeDebit, soldeCredit);
        const Ligne& total = d.lignes.back();
        QCOMPARE(total.genre, Genre::TotalGeneral);
        QCOMPARE(total.cellules.mid(3),
                 (QStringList{TexteMontant(debit), TexteMontant(credit), TexteMontant(soldeDebit),
                              TexteMontant(soldeCredit)}));
        QCOMPARE(Somme(d, 3), debit);
        QCOMPARE(Somme(d, 4), credit);
        QCOMPARE(Somme(d, 5), soldeDebit);
        QCOMPARE(Somme(d, 6), soldeCredit);
    }

    void balancesDesTiers() {
        const Document c = EtatBalance("C"), f = EtatBalance("F");
        QCOMPARE(c.titre, QStringLiteral("BALANCE CLIENTS"));
        QCOMPARE(f.titre, QStringLiteral("BALANCE FOURNISSEURS"));
        QCOMPARE(Cellules(c, 0), QStringList{"411001"});
        QCOMPARE(Cellules(f, 0), QStringList{"401001"});
        // Client : 180 facturés, 120 réglés, 60 dus.
        QCOMPARE(c.lignes.front().cellules.mid(3),
                 (QStringList{"180,00", "120,00", "60,00", QString()}));
    }

    void journaux_lignesDuJournalEtDuMois() {
        const Document tous = EtatJournal("*", 0);
        QCOMPARE(tous.titre, QStringLiteral("JOURNAL GENERAL"));
        QCOMPARE(Cellules(tous, 0).size(), 11);
        Montant debit, credit;
        TotauxJournal("*", debit, credit, 0);
        QCOMPARE(Somme(tous, 5), debit);
        QCOMPARE(Somme(tous, 6), credit);
        QCOMPARE(tous.lignes.back().cellules.mid(5),
                 (QStringList{TexteMontant(debit), TexteMontant(credit)}));

        const Document mars = EtatJournal("V", 3);
        QCOMPARE(mars.titre, QStringLiteral("JOURNAL DES VENTES - Mars"));
        QCOMPARE(Cellules(mars, 0), (QStringList{"4", "5", "6"}));
        QCOMPARE(Cellules(mars, 1), (QStringList{"10/03/2024", "10/03/2024", "10/03/2024"}));
        TotauxJournal("V", debit, credit, 3);
        QCOMPARE(debit, Euros(60));
        QCOMPARE(mars.lignes.back().cellules.mid(5), (QStringList{"60,00", "60,00"}));
        QVERIFY(EtatJournal("I", 0).lignes.size() == 1); // les totaux seuls
    }

    void balanceEnPdf_relue() {
        const Document d = EtatBalance("G");
        const QString chemin = dossier->Fichier("balance.pdf");
        int pages = 0;
        QCOMPARE(EcrirePdf(d, chemin, QStringLiteral("31/03/2024"), &pages), QString());
        QCOMPARE(pages, 1);
        QProcess p;
        p.start("pdftotext", {"-layout", chemin, "-"});
        QVERIFY(p.waitForFinished(20000));
        const QString t = QString::fromUtf8(p.readAllStandardOutput());
        QVERIFY(t.contains("BALANCE GENERALE"));
        QVERIFY(t.contains("Page 1 / 1"));
        for (const QString& numero : Cellules(d, 0))
            QVERIFY2(t.contains(QRegularExpression("\\b" + numero + "\\b")), qPrintable(numero));
        QVERIFY(!t.contains("411001"));
        QVERIFY(t.contains(d.lignes.back().cellules[3]));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestCatalogue test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_catalogue.moc"
