// Vérification des livres : totaux de balance et de journal, texte de verif.txt, les quatre
// contrôles, comparaison à deux décimales.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "posting/Verification.h"
#include "ui/Application.h"

#include <QtTest>

using namespace essai;

namespace {

struct Balance {
    Montant deb, cre, solDeb, solCre;
};

Balance Totaux(const char* choix) {
    Balance b{Euros(1), Euros(1), Euros(1), Euros(1)};
    TotauxBalance(QString::fromLatin1(choix), b.deb, b.cre, b.solDeb, b.solCre);
    return b;
}

QPair<Montant, Montant> Journal(const char* journal, int mois) {
    Montant d = Euros(1), c = Euros(1);
    TotauxJournal(QString::fromLatin1(journal), d, c, mois);
    return {d, c};
}

} // namespace

class TestVerification : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

    QStringList Texte() {
        QFile f(dossier->Fichier("verif.txt"));
        if (!f.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(f.readAll()).split(u'\n');
    }
    void Modifier(const std::string& sql) {
        Executer(sql);
        QVERIFY(!Verification());
    }
    void Achat(Montant ht, Montant tva) {
        ViderSaisie();
        Saisir("607", "D", ht, "A");
        Saisir("44566", "D", tva, "A");
        Saisir("401001", "C", ht + tva, "A");
        Passer();
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void exerciceNeufToutAZeroEtVrai() {
        QVERIFY(Verification());
        const QStringList t = Texte();
        QVERIFY(t.contains("[BTotDeb=0,00] [BtotCre=0,00]"));
        QVERIFY(t.contains("[JTotDeb=0,00] [JtotCre=0,00]"));
        QVERIFY(t.contains("TotReel calculé=0,00"));
        QVERIFY(t.contains("E2+R2=0,00 (TotReel budget=0,00 0,00)"));
    }

    void texteCompletDeVerifTxt() {
        Vente(Euros(1000), Euros(200));
        QVERIFY(Verification());
        QStringList attendu = {
            "Société : Essais Dupont & Fils",
            "Exercice : 2024",
            "",
            "Vérification de la Balance Générale :",
            "[BTotDeb=1 200,00] [BtotCre=1 200,00]",
            "[BSolDeb=1 200,00] [BSolCre=1 200,00]",
            "Vérification du Journal Général :",
            "[JTotDeb=1 200,00] [JtotCre=1 200,00]",
            "Vérification du Budget",
            "TotReel(01)=0,00   TotReel(07)=0,00",
            "TotReel(02)=0,00   TotReel(08)=0,00",
            "TotReel(03)=1 000,00   TotReel(09)=0,00",
            "TotReel(04)=0,00   TotReel(10)=0,00",
            "TotReel(05)=0,00   TotReel(11)=0,00",
            "TotReel(06)=0,00   TotReel(12)=0,00",
            "TotReel calculé=1 000,00",
            "TotReel mémorisé=1 000,00",
            "",
            "Vérification des totaux de la table Constante",
            "TDJV+TDJA+TDJT+TDJD+TDJI =1 200,00 TDJG=1 200,00",
            "TCJV+TCJA+TCJT+TCJD+TCJI =1 200,00 TCJG=1 200,00",
            "TDJG=1 200,00 Somme des mois : 1 200,00   TCJG=1 200,00 Somme des mois : 1 200,00",
            "TDJV=1 200,00 Somme des mois : 1 200,00   TCJV=1 200,00 Somme des mois : 1 200,00",
            "TDJA=0,00 Somme des mois : 0,00   TCJA=0,00 Somme des mois : 0,00",
            "TDJT=0,00 Somme des mois : 0,00   TCJT=0,00 Somme des mois : 0,00",
            "TDJD=0,00 Somme des mois : 0,00   TCJD=0,00 Somme des mois : 0,00",
            "TDJI=0,00 Somme des mois : 0,00   TCJI=0,00 Somme des mois : 0,00",
            "SDE1=0,00",
            "SDR1=0,00",
            "E1=1 200,00     E2=0,00",
            "R1=200,00     R2=1 000,00",
            "BIENS=0,00     DAR=1 200,00     MD=0,00",
            "SN=0,00     DAP=200,00",
            "CONS=0,00     ACTI=1 000,00",
            "Resultat=1 000,00     E1-R1=1 000,00     R2-E2=1 000,00",
            "",
            "BIENS+DAR+MD=1 200,00 (E1=1 200,00)",
            "SN+DAP=200,00 (R1=200,00)",
            "E2+R2=1 000,00 (TotReel budget=1 000,00 1 000,00)",
            ""};
        QCOMPARE(Texte(), attendu);
    }

    void verifTxtRemplaceLAncien() {
        QFile f(dossier->Fichier("verif.txt"));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QByteArray("ANCIEN\n").repeated(3000));
        f.close();
        QVERIFY(Verification());
        QVERIFY(!Texte().join('\n').contains("ANCIEN"));
        QCOMPARE(Texte().first(), QStringLiteral("Société : Essais Dupont & Fils"));
    }

    void ecartDeMoinsDUnDemiCentimeNeComptePas() {
        Vente(Euros(1000), Euros(200));
        Executer("UPDATE Constante SET TDJG=TDJG+40, TDJV=TDJV+49");
        QVERIFY(Verification());
        // Un demi-centime s'arrondit au centime supérieur : la différence se voit.
        Executer("UPDATE Constante SET TDJG=TDJG+10");
        QVERIFY(!Verification());
    }

    void controleDesTotauxEchoueSeul() {
        Vente(Euros(1000), Euros(200));
        // Passer un montant d'un journal à l'autre garde la somme des cinq.
        Executer("UPDATE Constante SET TDJV=TDJV-10000, TDJA=TDJA+10000");
        QVERIFY(Verification());
        Modifier("UPDATE Constante SET TDJA=TDJA+10000");
    }

    void controleDesTotauxVoitLaBalance() {
        Vente(Euros(1000), Euros(200));
        Modifier("UPDATE Compte SET CumC=CumC+10000 WHERE NumCpt='707'");
    }

    void controleDesTotauxVoitLeJournal() {
        Vente(Euros(1000), Euros(200));
        Modifier("UPDATE Ecriture SET MntEcr=MntEcr+10000 WHERE NumEcr=1");
    }

    void controleDesPostesEchoueSeul() {
        Vente(Euros(1000), Euros(200));
        Modifier("UPDATE Constante SET BIENS=BIENS+10000");
        Executer("UPDATE Constante SET BIENS=BIENS-10000");
        QVERIFY(Verification());
        Modifier("UPDATE Constante SET SN=SN+10000");
    }

    void controleDuResultatEchoueSeul() {
        Vente(Euros(1000), Euros(200));
        Modifier("UPDATE Constante SET Resultat=Resultat+10000");
        Executer("UPDATE Constante SET Resultat=Resultat-10000");
        QVERIFY(Verification());
        // L'ouverture déséquilibrée se voit aussi.
        Modifier("UPDATE Constante SET SDE1=SDE1+10000");
    }

    void controleDuBudgetEchoueSeul() {
        Vente(Euros(1000), Euros(200));
        Modifier("UPDATE Budget SET Reel=Reel+10000 WHERE NumBud='707'");
    }

    void solde699SeulExcuseLeBudget() {
        ViderSaisie();
        Saisir("699", "D", Euros(300), "I");
        Saisir("101", "C", Euros(300), "I");
        Passer();
        QVERIFY(Verification());
        QVERIFY(Texte().contains("E2+R2=300,00 (TotReel budget=0,00 0,00)"));
    }

    void solde799SeulExcuseLeBudget() {
        ViderSaisie();
        Saisir("101", "D", Euros(300), "I");
        Saisir("799", "C", Euros(300), "I");
        Passer();
        QVERIFY(Verification());
    }

    void ecartQuiNEstAucuneDesTroisSommesEchoue() {
        ViderSaisie();
        Saisir("699", "D", Euros(300), "I");
        Saisir("799", "C", Euros(300), "I");
        Passer();
        QVERIFY(!Verification());
    }

    void totauxBalanceGeneraleClientsFournisseurs() {
        Vente(Euros(1000), Euros(200));
        Achat(Euros(500), Euros(100));
        const Balance g = Totaux("G");
        QCOMPARE(g.deb, Euros(1800));
        QCOMPARE(g.cre, Euros(1800));
        const Balance c = Totaux("C");
        QCOMPARE(c.deb, Euros(1200));
        QCOMPARE(c.cre, Montant());
        QCOMPARE(c.solDeb, Euros(1200));
        QCOMPARE(c.solCre, Montant());
        const Balance f = Totaux("F");
        QCOMPARE(f.deb, Montant());
        QCOMPARE(f.cre, Euros(600));
        QCOMPARE(f.solCre, Euros(600));
        QCOMPARE(f.solDeb, Montant());
    }

    void totauxBalanceSoldesNegatifsDeLAutreCote() {
        ViderSaisie();
        Saisir("44571", "D", Euros(80), "T");
        Saisir("512", "C", Euros(80), "T");
        Passer();
        const Balance g = Totaux("G");
        // 512 (E1) créditeur et 44571 (R1) débiteur.
        QCOMPARE(g.solDeb, Euros(80));
        QCOMPARE(g.solCre, Euros(80));
        QCOMPARE(g.deb, Euros(80));
        QCOMPARE(g.cre, Euros(80));
    }

    void totauxBalanceLaisseDeCoteLesComptesSansOuvertureNiMouvement() {
        Executer("UPDATE Compte SET Solde=5000000 WHERE NumCpt='530'");
        const Balance g = Totaux("G");
        QCOMPARE(g.solDeb, Montant());
        SoldeOuverture("530", Euros(500));
        QCOMPARE(Totaux("G").solDeb, Euros(500));
    }

    void totauxBalanceSelectionVideQuatreZeros() {
        const Balance c = Totaux("C");
        QCOMPARE(c.deb, Montant());
        QCOMPARE(c.cre, Montant());
        QCOMPARE(c.solDeb, Montant());
        QCOMPARE(c.solCre, Montant());
    }

    void totauxJournalParLettreEtParMois() {
        Vente(Euros(100), Euros(20));
        session().DateSaisieCourante = "02/04/2024";
        Achat(Euros(50), Euros(10));
        QCOMPARE(Journal("V", 0), qMakePair(Euros(120), Euros(120)));
        QCOMPARE(Journal("A", 0), qMakePair(Euros(60), Euros(60)));
        QCOMPARE(Journal("*", 0), qMakePair(Euros(180), Euros(180)));
        QCOMPARE(Journal("*", -1), qMakePair(Euros(180), Euros(180)));
        QCOMPARE(Journal("*", 3), qMakePair(Euros(120), Euros(120)));
        QCOMPARE(Journal("*", 4), qMakePair(Euros(60), Euros(60)));
        QCOMPARE(Journal("V", 4), qMakePair(Montant(), Montant()));
        QCOMPARE(Journal("T", 0), qMakePair(Montant(), Montant()));
    }

    void totauxJournalUnSensAutreQueDVaAuCredit() {
        Vente(Euros(100), Euros(20));
        Executer("UPDATE Ecriture SET DCEcr='X' WHERE NumEcr=1");
        QCOMPARE(Journal("*", 0), qMakePair(Euros(0), Euros(240)));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestVerification t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_verification.moc"
