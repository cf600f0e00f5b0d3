// Conversion des montants saisis dans une autre monnaie que celle de l'exercice : arrondi,
// relecture par l'image des montants, ligne d'écart sur 677 ou 777.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"
#include "support/Recalcul.h"

#include "posting/Verification.h"
#include "store/Acces.h"
#include "ui/Application.h"

#include <QtTest>

using namespace essai;

namespace {

Montant DixMilliemes(std::int64_t v) {
    return Montant::depuisDixMilliemes(v);
}

QList<table::Saisie> TableDeTravail() {
    QList<table::Saisie> lignes;
    SQLite::Statement q(Base(), "SELECT rowid FROM wSaisie ORDER BY rowid");
    QList<std::int64_t> rowids;
    while (q.executeStep())
        rowids << q.getColumn(0).getInt64();
    for (std::int64_t r : rowids) {
        table::Saisie s;
        acces::LireLigne("wSaisie", "rowid=?", s, static_cast<double>(r));
        lignes << s;
    }
    return lignes;
}

} // namespace

class TestConversion : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    Depart depart;

    int ComptesConversion() {
        return Compter("SELECT count(*) FROM Compte WHERE NumCpt IN ('677','777')");
    }
    void VerifierLivres() {
        const QString ecarts = EcartsDesLivres(depart);
        QVERIFY2(ecarts.isEmpty(), qPrintable(ecarts));
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
        depart = Photographier();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void sansEcartNiLigneNiComptesDeConversion() {
        ViderSaisie();
        Saisir("512", "D", Euros(12.5));
        Saisir("707", "C", Euros(12.5));
        Passer("F");
        QCOMPARE(ComptesConversion(), 0);
        QCOMPARE(Compter("SELECT count(*) FROM wSaisie"), 2);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 2);
        QCOMPARE(Compter("SELECT sum(MntEcr) FROM Ecriture WHERE DCEcr='D'"), 125000);
        VerifierLivres();
    }

    void ecartPositifLigneAuDebitDe677EtLesDeuxComptesCrees() {
        ViderSaisie();
        Saisir("607", "D", DixMilliemes(100050), "A");
        Saisir("607", "D", DixMilliemes(100050), "A");
        Saisir("512", "C", DixMilliemes(200100), "A");
        Passer("F");
        // 10,005 s'arrondit au pair : 10,00 ; le crédit reste 20,01.
        const auto lignes = TableDeTravail();
        QCOMPARE(lignes.size(), 4);
        QCOMPARE(lignes[0].wMntEcr, Euros(10));
        QCOMPARE(lignes[1].wMntEcr, Euros(10));
        QCOMPARE(lignes[2].wMntEcr, -Euros(20.01));
        QCOMPARE(lignes[3].wNumCpt.trimmed(), QStringLiteral("677"));
        QCOMPARE(lignes[3].wDCEcr, QStringLiteral("D"));
        QCOMPARE(lignes[3].wMntEcr, Euros(0.01));
        QCOMPARE(lignes[3].wNumEcrt, 4.0);
        QCOMPARE(ComptesConversion(), 2);
        table::Compte perte, gain;
        QVERIFY(LireCompte(Cle, "677", perte));
        QVERIFY(LireCompte(Cle, "777", gain));
        QCOMPARE(perte.LibCpt.trimmed(), QStringLiteral("Perte sur conversions"));
        QCOMPARE(perte.ErCpt, QStringLiteral("E2"));
        QCOMPARE(perte.Bilan.trimmed(), QStringLiteral("CONS"));
        QCOMPARE(gain.LibCpt.trimmed(), QStringLiteral("Gain sur conversions"));
        QCOMPARE(gain.ErCpt, QStringLiteral("R2"));
        QCOMPARE(gain.Bilan.trimmed(), QStringLiteral("ACTI"));
        QCOMPARE(perte.CumD, Euros(0.01));
        QCOMPARE(gain.CumC, Montant());
        table::Ecriture e;
        QVERIFY(LireEcriture(Cle, 4, e));
        QCOMPARE(e.NumCptEcr.trimmed(), QStringLiteral("677"));
        QCOMPARE(e.Fin, true);
        QVERIFY(LireEcriture(Cle, 3, e));
        QCOMPARE(e.Fin, false);
        VerifierLivres();
    }

    void ecartNegatifLigneAuCreditDe777() {
        ViderSaisie();
        Saisir("512", "D", DixMilliemes(200100));
        Saisir("707", "C", DixMilliemes(100050));
        Saisir("707", "C", DixMilliemes(100050));
        Passer("F");
        table::Compte gain;
        QVERIFY(LireCompte(Cle, "777", gain));
        QCOMPARE(gain.CumC, Euros(0.01));
        QCOMPARE(ComptesConversion(), 2);
        table::Budget b;
        QVERIFY(LireBudget(Cle, "777", b));
        QCOMPARE(b.Reel, Euros(0.01));
        VerifierLivres();
    }

    void ligneDEcartCopieDeLaDerniereLigneAvecLesDatesDeLaDerniere() {
        ViderSaisie();
        table::Saisie a = Ligne("607", "D", DixMilliemes(100050), "A");
        a.wLibEcr = "Achat du mois";
        a.wMenuLigne = "A07";
        a.wDateEcheance = "20240430";
        AjouterSaisie(a);
        AjouterSaisie(a);
        // La dernière ligne est marquée finie : la copie part de la précédente, mais les
        // dates viennent de la dernière ligne de la table.
        table::Saisie b = Ligne("512", "C", DixMilliemes(200100), "T");
        b.wFin = true;
        b.wDateEcr = "20240320";
        b.wDatePiece = "20240319";
        AjouterSaisie(b);
        Passer("F");
        const auto lignes = TableDeTravail();
        QCOMPARE(lignes.size(), 4);
        const table::Saisie& x = lignes[3];
        QCOMPARE(x.wNumCpt.trimmed(), QStringLiteral("677"));
        QCOMPARE(x.wLibCpt.trimmed(), QStringLiteral("Perte sur conversions"));
        QCOMPARE(x.wErEcr, QStringLiteral("E2"));
        QCOMPARE(x.wBilan.trimmed(), QStringLiteral("CONS"));
        QCOMPARE(x.wLibEcr.trimmed(), QStringLiteral("Achat du mois"));
        QCOMPARE(x.wMenuLigne.trimmed(), QStringLiteral("A07"));
        QCOMPARE(x.wJournal, QStringLiteral("A"));
        QCOMPARE(x.wDateEcheance, QStringLiteral("20240430"));
        QCOMPARE(x.wDateEcr, QStringLiteral("20240320"));
        QCOMPARE(x.wDatePiece, QStringLiteral("20240319"));
        QCOMPARE(x.wMenu, a.wMenu);
    }

    void ligneDEcartGardeLeMenuDeLaDerniereLigneEtSonCollectif() {
        ViderSaisie();
        Saisir("707", "C", DixMilliemes(200100));
        Saisir("411001", "D", DixMilliemes(100050));
        Saisir("411001", "D", DixMilliemes(100050));
        Passer("F");
        // La ligne de 677 porte le Menu client de la ligne copiée : 410 la reçoit aussi.
        table::Compte collectif;
        LireCompte(Cle, "410", collectif);
        QCOMPARE(collectif.CumD, Euros(20.01));
        table::Compte perte;
        LireCompte(Cle, "677", perte);
        QCOMPARE(perte.CumD, Euros(0.01));
        // La balance générale compte alors ce centime deux fois.
        QVERIFY(!Verification());
    }

    void sansDecimalesLesMontantsSontRelusALUnite() {
        MajFormatMontant(0);
        ViderSaisie();
        Saisir("512", "D", Euros(10.4));
        Saisir("707", "C", Euros(10.4));
        Passer("F");
        QCOMPARE(ComptesConversion(), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture WHERE MntEcr=100000"), 2);
    }

    void exerciceEnFrancsMultiplieParLeTaux() {
        session().MonnaieExercice = "F";
        session().TauxConversion = 2;
        ViderSaisie();
        Saisir("512", "D", Euros(10));
        Saisir("707", "C", Euros(10));
        Passer("E");
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture WHERE abs(MntEcr)=200000"), 2);
    }

    void exerciceEnEurosDiviseParLeTaux() {
        session().TauxConversion = 2;
        ViderSaisie();
        Saisir("512", "D", Euros(10));
        Saisir("707", "C", Euros(10));
        Passer("F");
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture WHERE abs(MntEcr)=50000"), 2);
    }

    void tableVideRienNeSePasse() {
        ViderSaisie();
        Passer("F");
        QCOMPARE(ComptesConversion(), 0);
        QCOMPARE(Compter("SELECT count(*) FROM wSaisie"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 0);
        QVERIFY(Verification());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestConversion t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_conversion.moc"
