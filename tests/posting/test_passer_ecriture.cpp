// Passage d'une écriture : numérotation, lignes d'Ecriture, cumuls du mois de la saisie,
// totaux des journaux et contrôle de l'équilibre.

#include "PassageEssai.h"

#include "posting/PasserEcriture.h"
#include "posting/Verification.h"
#include "ui/Application.h"
#include "ui/Boite.h"

#include <QtTest>

using namespace essai;

class TestPasserEcriture : public BancPassage {
    Q_OBJECT

private slots:
    void init() { Ouvrir(); }
    void cleanup() { Fermer(); }

    void lignesNumeroteesALaSuiteFinSurLaDerniere() {
        Vente(Euros(1000), Euros(200));
        Vente(Euros(50), Euros(10));
        const auto lignes = Lignes();
        QCOMPARE(lignes.size(), 6);
        for (int i = 0; i < 6; ++i) {
            QCOMPARE(lignes[i].NumEcr, double(i + 1));
            QCOMPARE(lignes[i].Fin, i == 2 || i == 5);
        }
        QCOMPARE(DernierNumero(), 6.0);
        VerifierLivres();
    }

    void champsDeLaLigneCopiesDansEcriture() {
        ViderSaisie();
        table::Saisie s = Ligne("411001", "D", Euros(12.34), "V");
        s.wDatePiece = "20240310";
        s.wDateEcheance = "20240410";
        s.wMoisEcheance = "04";
        s.wLibEcr = QStringLiteral("Facture \"n°12\" d'avril");
        s.wLettrage = true;
        s.wSectionEcr = 5;
        s.wVentilEcr = 1;
        AjouterSaisie(s);
        Saisir("707", "C", Euros(12.34));
        Passer();
        table::Ecriture e;
        QVERIFY(LireEcriture(Cle, 1, e));
        QCOMPARE(e.CleCpt.trimmed(), Cle);
        QCOMPARE(e.DateEcr, QStringLiteral("20240315"));
        QCOMPARE(e.DatePiece, QStringLiteral("20240310"));
        QCOMPARE(e.NumCptEcr.trimmed(), QStringLiteral("411001"));
        QCOMPARE(e.ErEcr, QStringLiteral("E1"));
        QCOMPARE(e.MntEcr, Euros(12.34));
        QCOMPARE(e.LibEcr.trimmed(), QStringLiteral("Facture \"n°12\" d'avril"));
        QCOMPARE(e.DCEcr, QStringLiteral("D"));
        QCOMPARE(e.Journal, QStringLiteral("V"));
        QCOMPARE(e.Fin, false);
        QCOMPARE(e.DateEcheance, QStringLiteral("20240410"));
        QCOMPARE(e.MoisEcheance, QStringLiteral("04"));
        // Un oui rangé dans l'octet de lettrage vaut 255.
        QCOMPARE(int(e.Lettrage), 255);
        QCOMPARE(int(e.SectionEcr), 5);
        QCOMPARE(e.VentilEcr, true);
        QVERIFY(LireEcriture(Cle, 2, e));
        QCOMPARE(e.MntEcr, Euros(12.34));
        QCOMPARE(e.DCEcr, QStringLiteral("C"));
        QCOMPARE(int(e.Lettrage), 0);
        QCOMPARE(e.Fin, true);
        VerifierLivres();
    }

    void numerosEcritsDansLaTableDeTravailQuiReste() {
        Vente(Euros(100), Euros(20));
        QCOMPARE(Compter("SELECT count(*) FROM wSaisie"), 3);
        SQLite::Statement q(Base(), "SELECT wNumEcrt FROM wSaisie ORDER BY rowid");
        QList<double> numeros;
        while (q.executeStep())
            numeros << q.getColumn(0).getDouble();
        QCOMPARE(numeros, (QList<double>{1, 2, 3}));
    }

    void lignesAZeroSauteesFinSurLaDerniereAvecMontant() {
        ViderSaisie();
        Saisir("411001", "D", Euros(100));
        Saisir("626", "D", Montant());
        Saisir("707", "C", Euros(100));
        Saisir("44571", "C", Montant());
        Passer();
        const auto lignes = Lignes();
        QCOMPARE(lignes.size(), 2);
        QCOMPARE(lignes[0].NumCptEcr.trimmed(), QStringLiteral("411001"));
        QCOMPARE(lignes[1].NumCptEcr.trimmed(), QStringLiteral("707"));
        QCOMPARE(lignes[1].NumEcr, 2.0);
        QCOMPARE(lignes[1].Fin, true);
        QCOMPARE(lignes[0].Fin, false);
        SQLite::Statement q(Base(), "SELECT wNumEcrt FROM wSaisie ORDER BY rowid");
        QList<double> numeros;
        while (q.executeStep())
            numeros << q.getColumn(0).getDouble();
        QCOMPARE(numeros, (QList<double>{1, 0, 2, 0}));
        VerifierLivres();
    }

    void toutAZeroNePasseRienEtRemetLastNumEcritAZero() {
        Vente(Euros(100), Euros(20));
        const QStringList avant = Vidage();
        ViderSaisie();
        Saisir("512", "D", Montant());
        Saisir("707", "C", Montant());
        Passer();
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        QCOMPARE(DernierNumero(), 0.0);
        // Rien d'autre n'a bougé que LastNumEcrit.
        const QStringList diff = Difference(avant, Vidage());
        QCOMPARE(diff.size(), 1);
        QVERIFY(diff[0].startsWith("Constante|"));
        QVERIFY(diff[0].contains("|LastNumEcrit=0.0|"));
    }

    void deuxJournauxChaqueLigneGardeSaLettreTotauxAuPremier() {
        ViderSaisie();
        Saisir("607", "D", Euros(100), "A");
        Saisir("512", "C", Euros(100), "T");
        Passer();
        const auto lignes = Lignes();
        QCOMPARE(lignes[0].Journal, QStringLiteral("A"));
        QCOMPARE(lignes[1].Journal, QStringLiteral("T"));
        table::Constante k;
        LireConstante(Cle, k);
        QCOMPARE(k.TDJA, Euros(100));
        QCOMPARE(k.TCJA, Euros(100));
        QCOMPARE(k.TDJAM[3], Euros(100));
        QCOMPARE(k.TCJAM[3], Euros(100));
        QCOMPARE(k.TDJT, Montant());
        QCOMPARE(k.TCJT, Montant());
        QCOMPARE(k.TDJG, Euros(100));
        VerifierLivres();
    }

    void monnaieDeLExerciceNiConversionNi677Ni777() {
        ViderSaisie();
        table::Saisie a = Ligne("607", "D", Montant::depuisDixMilliemes(100050));
        AjouterSaisie(a);
        AjouterSaisie(a);
        Saisir("512", "C", Montant::depuisDixMilliemes(200100));
        Passer("E");
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE NumCpt IN ('677','777')"), 0);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        QCOMPARE(Compter("SELECT sum(MntEcr) FROM Ecriture WHERE DCEcr='D'"), 200100);
    }

    void premierNumeroDonneParDernumEnTexte() {
        ViderSaisie();
        Saisir("512", "D", Euros(1));
        Saisir("707", "C", Euros(1));
        PasserEcriture("10", "E");
        const auto lignes = Lignes();
        QCOMPARE(lignes.size(), 2);
        QCOMPARE(lignes[0].NumEcr, 10.0);
        QCOMPARE(lignes[1].NumEcr, 11.0);
        QCOMPARE(DernierNumero(), 11.0);
        QCOMPARE(Ini("Dernum"), QStringLiteral("10"));
    }

    void moisDesCumulsPrisDeLaDateDeSaisie() {
        session().DateSaisieCourante = "20/07/2024";
        ViderSaisie();
        table::Saisie a = Ligne("512", "D", Euros(30));
        a.wDateEcr = "20240301";
        AjouterSaisie(a);
        table::Saisie b = Ligne("707", "C", Euros(30));
        b.wDateEcr = "20240301";
        AjouterSaisie(b);
        Passer();
        table::Compte c;
        LireCompte(Cle, "512", c);
        QCOMPARE(c.CumDM[7], Euros(30));
        QCOMPARE(c.CumDM[3], Montant());
        table::Constante k;
        LireConstante(Cle, k);
        QCOMPARE(k.TDJGM[7], Euros(30));
        QCOMPARE(k.TDJVM[7], Euros(30));
        table::Budget bud;
        LireBudget(Cle, "707", bud);
        QCOMPARE(bud.ReelM[7], Euros(30));
    }

    void controleEquilibreTableVide() {
        ViderSaisie();
        QVERIFY(ControlerEquilibre());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void controleEquilibreDebitsEgauxCredits() {
        ViderSaisie();
        Saisir("411001", "D", Euros(120));
        Saisir("707", "C", Euros(100));
        Saisir("44571", "C", Euros(20));
        QVERIFY(ControlerEquilibre());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void controleEquilibreRefuseDesSommesDifferentes() {
        ViderSaisie();
        Saisir("411001", "D", Euros(120));
        Saisir("707", "C", Euros(100));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!ControlerEquilibre());
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].texte,
                 QStringLiteral("La somme des débits n'égale pas la somme des crédits ! "));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Critique);
    }

    void controleEquilibreUnSensAutreQueDCompteAuCredit() {
        ViderSaisie();
        Saisir("512", "D", Euros(10));
        table::Saisie s = Ligne("707", "C", Euros(10));
        s.wDCEcr = "X";
        AjouterSaisie(s);
        QVERIFY(ControlerEquilibre());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPasserEcriture t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_passer_ecriture.moc"
