// Saisie en débits et crédits : les cas limites des cellules, du contrôle d'équilibre,
// du rappel des comptes par journal et du clavier.

#include "EssaiSaisDC.h"

#include "posting/Verification.h"
#include "ui/Application.h"
#include "ui/ChampDate.h"

#include <QCheckBox>

using namespace essai;

class TestSaisDCCas : public QObject {
    Q_OBJECT
    EcranDC dc;

    const QString desequilibre =
        QStringLiteral("La somme des débits n'égale pas la somme des crédits ! ");

private slots:
    void init() { dc.Preparer(); }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        dc.Liberer();
    }

    void debitsSeuls_OKFerme() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        dc.Ajouter("607");
        dc.Montant("512", Debit, "100");
        dc.Montant("607", Debit, "100");
        QCOMPARE(dc.Texte("LTotDeb"), QStringLiteral("200,00 E"));
        QCOMPARE(dc.Texte("LTotCre"), QStringLiteral("0,00 E"));
        QVERIFY(!dc.Bouton("Command1")->isEnabled());
    }

    void debitEtCreditSurLaMemeLigne_refuseEtReconstruit() {
        dc.Ouvrir("D");
        dc.Libelle("Essai");
        dc.Ajouter("512");
        dc.Montant("512", Debit, "100");
        dc.Montant("512", Credit, "100");
        QCOMPARE(dc.Texte("LTotDeb"), dc.Texte("LTotCre"));
        QVERIFY(dc.Bouton("Command1")->isEnabled());
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), desequilibre);
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Critique);
        // La ligne garde son dernier côté : le crédit.
        QCOMPARE(dc.Cellule("512", Debit), QString());
        QCOMPARE(dc.Cellule("512", Credit), QStringLiteral("100,00 E"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 0);
    }

    void creditSurCompteE1_negatifEtMontrePositif() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        dc.Ajouter("607");
        dc.Montant("512", Debit, "75.5");
        dc.Montant("512", Credit, "75.5");
        QCOMPARE(dc.Cellule("512", Credit), QStringLiteral("75,50 E"));
        QCOMPARE(RangSaisie("512"), std::make_pair(-Euros(75.5), QStringLiteral("C")));
        // Totaux égaux à l'écran, refus du contrôle : Tree2 refait depuis les lignes.
        QVERIFY(dc.Bouton("Command1")->isEnabled());
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), desequilibre);
        QCOMPARE(dc.Cellule("512", Debit), QString());
        QCOMPARE(dc.Cellule("512", Credit), QStringLiteral("75,50 E"));
        QCOMPARE(dc.Cellule("607", Credit), QStringLiteral("0,00 E"));
    }

    void montantNegatif_messageEtCelluleVide() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        ui::RepondreBoite(ui::Reponse::OK);
        dc.Montant("512", Debit, "-5");
        QCOMPARE(DerniereBoite(),
                 QStringLiteral("Ne saisissez que des montants positifs dans cet écran."));
        QCOMPARE(dc.Cellule("512", Debit), QString());
        QCOMPARE(RangSaisie("512"), std::make_pair(Montant(), QString()));
    }

    void lettres_pasConforme() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        ui::RepondreBoite(ui::Reponse::OK);
        dc.Montant("512", Credit, "12a");
        QCOMPARE(DerniereBoite(), QStringLiteral("Votre saisie n'est pas conforme, Recommencez"));
        QCOMPARE(dc.Cellule("512", Credit), QString());
        QCOMPARE(RangSaisie("512"), std::make_pair(Montant(), QString()));
    }

    void zeroAuDebit_passeAuCredit() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        dc.Montant("512", Debit, "0");
        QVERIFY(dc.t2->EditionOuverte());
        QCOMPARE(dc.t2->ColonneEditee(), Credit);
        support::TaperDansCellule(dc.t2, "40");
        QCOMPARE(RangSaisie("512"), std::make_pair(-Euros(40), QStringLiteral("C")));
    }

    void compteDejaPresent_message() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        ui::RepondreBoite(ui::Reponse::OK);
        dc.Ajouter("512");
        QCOMPARE(DerniereBoite(),
                 QStringLiteral("Le compte \"512      Banque\" est déjà présent."));
        QCOMPARE(dc.t2->NombreLignes(), 1);
    }

    void suppressionDuneLigne_totauxRefaits() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        dc.Ajouter("607");
        dc.Montant("512", Credit, "30");
        dc.Montant("607", Debit, "30");
        QVERIFY(dc.Bouton("Command1")->isEnabled());
        dc.t2->FixerLigneCourante(dc.t2->ChercherTexte(0, "607"));
        QTest::mouseClick(dc.Bouton("BSuppr"), Qt::LeftButton);
        QCOMPARE(dc.t2->NombreLignes(), 1);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 1);
        QCOMPARE(dc.Texte("LTotDeb"), QStringLiteral("0,00 E"));
        QVERIFY(!dc.Bouton("Command1")->isEnabled());
    }

    void rappelTresorerie_banquesEtCaissesSeules() {
        dc.Ouvrir("T", "33");
        dc.Libelle("Vente comptant");
        for (const char* n : {"530", "707", "44571"})
            dc.Ajouter(n);
        dc.Montant("530", Debit, "120");
        dc.Montant("707", Credit, "100");
        dc.Montant("44571", Credit, "20");
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 3);
        QCOMPARE(dc.t2->NombreLignes(), 1);
        QCOMPARE(dc.t2->Texte(0, 0), QStringLiteral("530"));
        QCOMPARE(dc.t2->Texte(0, Debit), QString());
        QCOMPARE(RangSaisie("530").first, Montant());
        QCOMPARE(dc.Texte("Label1"), QStringLiteral("4"));
    }

    void rappelVentes_leClientPart() {
        dc.Ouvrir("V");
        dc.Libelle("Facture");
        for (const char* n : {"411001", "707", "44571"})
            dc.Ajouter(n);
        dc.Montant("411001", Debit, "120");
        dc.Montant("707", Credit, "100");
        dc.Montant("44571", Credit, "20");
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 3);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie WHERE wMntEcr=0"), 2);
        QCOMPARE(dc.t2->NombreLignes(), 2);
        QCOMPARE(dc.t2->ChercherTexte(0, "411001"), -1);
        // La suivante repart des comptes rappelés.
        dc.Libelle("Facture 2");
        dc.Ajouter("411001");
        dc.Montant("411001", Debit, "60");
        dc.Montant("707", Credit, "50");
        dc.Montant("44571", Credit, "10");
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 6);
        QVERIFY(Verification());
    }

    void echeanceLointaine_confirmation() {
        dc.Ouvrir("V");
        dc.Libelle("Facture");
        dc.e->findChild<QCheckBox*>("BCrappel")->setChecked(false);
        ui::FixerTexteDate(dc.Champ("Text3"), QStringLiteral("30/09/2024"));
        dc.Ajouter("411001");
        dc.Ajouter("707");
        dc.Montant("411001", Debit, "10");
        dc.Montant("707", Credit, "10");
        ui::RepondreBoite(ui::Reponse::Non);
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Confirmation"));
        QCOMPARE(DerniereBoite(), QStringLiteral("Etes-vous certain de votre date d'échéance ?"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 0);
        ui::RepondreBoite(ui::Reponse::Oui);
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 2);
        QCOMPARE(LigneLue(1).DateEcheance, QStringLiteral("20240930"));
        QCOMPARE(LigneLue(1).MoisEcheance, QStringLiteral("09"));
    }

    void sansLibelle_message() {
        dc.Ouvrir("D");
        dc.Ajouter("512");
        dc.Ajouter("101");
        dc.Montant("512", Debit, "5");
        dc.Montant("101", Credit, "5");
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), QStringLiteral("Vous DEVEZ saisir un libellé."));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 0);
    }

    void clavier_rechercheEntreeEtCellules() {
        dc.Ouvrir("D");
        QLineEdit* t4 = dc.Champ("Text4");
        t4->setFocus();
        support::TaperCaracteres(t4, "51");
        QCOMPARE(dc.t1->Texte(dc.t1->LigneCourante(), 0), QStringLiteral("512"));
        support::TaperCaracteres(t4, "2");
        QTest::keyClick(t4, Qt::Key_Return);
        QCOMPARE(t4->text(), QString());
        QCOMPARE(dc.t2->NombreLignes(), 1);
        support::TaperCaracteres(t4, "2154");
        QTest::keyClick(t4, Qt::Key_Return);
        QCOMPARE(dc.t2->NombreLignes(), 2);
        // Entrée sur une ligne sans débit ouvre le crédit.
        dc.t2->FixerLigneCourante(0);
        QTest::keyClick(dc.t2, Qt::Key_Return);
        QVERIFY(dc.t2->EditionOuverte());
        QCOMPARE(dc.t2->ColonneEditee(), Credit);
        support::TaperDansCellule(dc.t2, "9");
        QCOMPARE(RangSaisie("512"), std::make_pair(-Euros(9), QStringLiteral("C")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisDCCas t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_saisdc_cas.moc"
