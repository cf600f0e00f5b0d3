// Saisie logique des montants : numéro proposé, dates, signes rectifiés, totaux et règle
// de "&OK", libellé obligatoire, échéance, écriture passée par le moteur.

#include "support/DossierEssai.h"
#include "support/PiloteModal.h"

#include "SaisieEssai.h"
#include "entry/ChoixCpt.h"
#include "entry/SaisQuad.h"
#include "posting/Verification.h"
#include "ui/Application.h"
#include "ui/ChampDate.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace essai;

namespace {

const QString kPositif =
    QStringLiteral("Ce montant devait être positif !\n\nIl va être rectifié par le logiciel.");
const QString kNegatif =
    QStringLiteral("Ce montant devait être négatif !\n\nIl va être rectifié par le logiciel.");
const QString kNonConforme = QStringLiteral("Votre saisie n'est pas conforme, Recommencez");

QString Texte(QWidget* e, const char* nom) {
    if (auto* l = e->findChild<QLabel*>(nom)) return l->text();
    return e->findChild<QLineEdit*>(nom)->text();
}

bool OK(QWidget* e) {
    return e->findChild<QPushButton*>("Command1")->isEnabled();
}

Montant Mnt(const QString& numero) {
    SQLite::Statement q(Base(), "SELECT wMntEcr FROM wSaisie WHERE wNumCpt=?");
    q.bind(1, numero.toStdString());
    return q.executeStep() ? Montant::depuisDixMilliemes(q.getColumn(0).getInt64()) : Montant();
}

QString Champ(const std::string& champ, const QString& numero) {
    SQLite::Statement q(Base(), "SELECT " + champ + " FROM wSaisie WHERE wNumCpt=?");
    q.bind(1, numero.toStdString());
    return q.executeStep() ? Colonne(q, 0) : QStringLiteral("<absent>");
}

QString Cellule(QWidget* e, const QString& numero) {
    auto* g = e->findChild<ui::Grille*>(ListeDuCode(LireCpt(numero).ErCpt));
    for (int i = 0; i < g->NombreLignes(); ++i)
        if (g->Texte(i, 0).trimmed() == numero) return g->Texte(i, 2);
    return {};
}

} // namespace

class TestSaisQuad : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

    // Facture de vente : produit, TVA, client.
    void PreparerVente() {
        Preparer("7071", "111", 1);
        Preparer("445711", "112", 2);
        Preparer("411", "113", 3);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*dossier);
        CopierPlan(QStringLiteral("0001"));
        session().CleMenuSaisie = QStringLiteral("11");
        session().LigneMenuSaisie = CaseDeMenu("111").tLibMenuprinc.leftJustified(50);
        session().EcriturePassee = false;
        Base().exec("DELETE FROM wSaisie");
        ui::ViderJournalBoites();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void chargement_titreNumeroDateEtListes() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        QCOMPARE(e.windowTitle(),
                 QStringLiteral("Saisie logique de \"%1\"").arg(CaseDeMenu("111").tLibMenuprinc));
        QCOMPARE(Texte(&e, "Label1"), QStringLiteral("1"));
        QCOMPARE(Texte(&e, "Text1"), QStringLiteral("15/03/2024"));
        QVERIFY(e.findChild<QLineEdit*>("Text3")->isVisible());
        QCOMPARE(Texte(&e, "Label12"), QStringLiteral("0,00 E"));
        QCOMPARE(e.findChild<ui::Grille*>("Tree1")->NombreLignes(), 1);
        QCOMPARE(e.findChild<ui::Grille*>("Tree2")->NombreLignes(), 1);
        QCOMPARE(e.findChild<ui::Grille*>("Tree4")->NombreLignes(), 1);
        QVERIFY(!OK(&e));
    }

    void numero_leMaximumDEcritureLEmporteSurLeCompteur() {
        Passer("10/03/2024", {{"512", "D", Euros(10)}, {"7071", "C", Euros(10)}});
        Base().exec("UPDATE Constante SET LastNumEcrit=40 WHERE CleCon='012024'");
        PreparerVente();
        ecran::SaisQuad e;
        QCOMPARE(Texte(&e, "Label1"), QString::number(Compter("SELECT MAX(NumEcr) FROM "
                                                              "Ecriture WHERE CleCpt='012024'") +
                                                      1));
        Base().exec("DELETE FROM Ecriture");
        ecran::SaisQuad f;
        QCOMPARE(Texte(&f, "Label1"), QStringLiteral("41"));
    }

    void totauxNuls_okFerme() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        QVERIFY(TaperMontant(&e, "7071", "0"));
        QVERIFY(TaperMontant(&e, "411", "0"));
        QVERIFY(!OK(&e));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void actifPlusEtMoinsCent_okOuvertEtDebitCredit() {
        Preparer("512", "311", 1);
        Preparer("531", "312", 2);
        session().CleMenuSaisie = QStringLiteral("31");
        Base().exec("UPDATE wSaisie SET wSigne='0'");
        ecran::SaisQuad e;
        e.show();
        QVERIFY(!e.findChild<QLineEdit*>("Text3")->isVisible());
        QVERIFY(TaperMontant(&e, "512", "100"));
        QVERIFY(!OK(&e));
        QVERIFY(TaperMontant(&e, "531", "-100"));
        QCOMPARE(Texte(&e, "Label12"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte(&e, "Label13"), QStringLiteral("0,00 E"));
        QVERIFY(OK(&e));
        QCOMPARE(Champ("wDCEcr", "512"), QStringLiteral("D"));
        QCOMPARE(Champ("wDCEcr", "531"), QStringLiteral("C"));
        // Trésorerie : pas d'échéance, les blancs soulignés du masque sont rangés.
        QCOMPARE(Champ("wDateEcheance", "512"), QStringLiteral("________"));
        QTest::keyClicks(e.findChild<QLineEdit*>("Text2"), QStringLiteral("Retrait"));
        QVERIFY(support::CliquerBouton(&e, "Command1"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE DCEcr='D'"), 1);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE DCEcr='C'"), 1);
        QVERIFY(session().EcriturePassee);
        QVERIFY(Verification());
    }

    void virgulePointBlancs_memeMontant_lettresRefusees() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        for (const QString& tape :
             {QStringLiteral("1 234,5"), QStringLiteral("1234.50"), QStringLiteral("1234,50")}) {
            QVERIFY(TaperMontant(&e, "7071", tape));
            QCOMPARE(Mnt("7071"), Euros(1234.5));
            QCOMPARE(Cellule(&e, "7071"), QStringLiteral("1 234,50 E"));
        }
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(TaperMontant(&e, "411", "abc"));
        QCOMPARE(TextesBoites(), QStringList{kNonConforme});
        QCOMPARE(Cellule(&e, "411"), QStringLiteral("0,00 E"));
        QCOMPARE(Champ("wDCEcr", "411"), QString());
    }

    void montantVide_demandeUnMontantEtGardeLaCellule() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!TaperMontant(&e, "7071", ""));
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Entrez un montant SVP.")});
        auto* g = e.findChild<ui::Grille*>("Tree4");
        QVERIFY(g->EditionOuverte());
        QVERIFY(support::TaperDansCellule(g, "10"));
        QCOMPARE(Mnt("7071"), Euros(10));
    }

    void mauvaisSigne_rectifieAvecMessage() {
        PreparerVente();
        Base().exec("UPDATE wSaisie SET wSigne='2' WHERE wNumCpt='411'");
        ecran::SaisQuad e;
        e.show();
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(TaperMontant(&e, "7071", "-100"));
        QCOMPARE(Mnt("7071"), Euros(100));
        QCOMPARE(Cellule(&e, "7071"), QStringLiteral("100,00 E"));
        QCOMPARE(Texte(&e, "Label13"), QStringLiteral("100,00 E"));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(TaperMontant(&e, "411", "50"));
        QCOMPARE(Mnt("411"), Euros(-50));
        QCOMPARE(TextesBoites(), (QStringList{kPositif, kNegatif}));
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Exclamation);
        // Zéro passe les deux contrôles.
        QVERIFY(TaperMontant(&e, "411", "0"));
        QCOMPARE(ui::JournalBoites().size(), 2);
    }

    void ok_sansLibelle_refuse_puisEcheanceLointaineDemandee() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        QVERIFY(TaperMontant(&e, "7071", "100"));
        QVERIFY(TaperMontant(&e, "445711", "20"));
        QVERIFY(TaperMontant(&e, "411", "120"));
        QVERIFY(OK(&e));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerBouton(&e, "Command1"));
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Vous DEVEZ saisir un libellé.")});
        e.findChild<QLineEdit*>("Text2")->setText(QStringLiteral("Facture \"Léa\" d'avril"));
        ui::FixerTexteDate(e.findChild<QLineEdit*>("Text3"), QStringLiteral("30/06/2024"));
        ui::ViderJournalBoites();
        ui::RepondreBoite(ui::Reponse::Non);
        QVERIFY(support::CliquerBouton(&e, "Command1"));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("Confirmation"));
        QCOMPARE(ui::JournalBoites().first().texte,
                 QStringLiteral("Etes-vous certain de votre date d'échéance ?"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 0);
        ui::RepondreBoite(ui::Reponse::Oui);
        QVERIFY(support::CliquerBouton(&e, "Command1"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 3);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE LibEcr=?",
                         QStringLiteral("Facture \"Léa\" d'avril")),
                 3);
        QVERIFY(Verification());
    }

    void dateMalSaisie_message() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        e.activateWindow();
        auto* t1 = e.findChild<QLineEdit*>("Text1");
        ui::FixerTexteDate(t1, QStringLiteral("31/02/2024"));
        ui::RepondreBoite(ui::Reponse::OK);
        e.Text1_LostFocus();
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("La date a été mal saisie.")});
        ui::FixerTexteDate(e.findChild<QLineEdit*>("Text3"), QString());
        e.Text3_LostFocus();
        QCOMPARE(ui::JournalBoites().size(), 1);
    }
    void retour_garderLesMontants_quitterDechargeLaChaine() {
        PreparerVente();
        QString montantRevu;
        support::PiloteModal p;
        p.Attendre("ChoixCpt", support::Cliquer("Command3"))
            .Attendre("SaisQuad",
                      [](QWidget* w) {
                          TaperMontant(w, "7071", "250");
                          support::CliquerBouton(w, "Command2");
                      })
            .Attendre("ChoixCpt", support::Cliquer("Command3"))
            .Attendre("SaisQuad", [&](QWidget* w) {
                montantRevu = Cellule(w, "7071");
                support::CliquerBouton(w, "Command4");
            });
        p.Demarrer();
        ecran::ChoixCpt e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(p.Reussi(), qPrintable(p.Echec()));
        QCOMPARE(montantRevu, QStringLiteral("250,00 E"));
        QVERIFY(!session().EcriturePassee);
        QVERIFY(!e.isVisible());
        QCOMPARE(Mnt("7071"), Euros(250));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 0);
    }
    void okSurDesLignesDesequilibrees_refuseParLeControle() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        QVERIFY(TaperMontant(&e, "7071", "100"));
        QVERIFY(!OK(&e));
        e.findChild<QLineEdit*>("Text2")->setText(QStringLiteral("Déséquilibre"));
        ui::RepondreBoite(ui::Reponse::OK);
        // Le bouton fermé n'est pas une garantie : le contrôle refait la somme.
        e.Command1_Click();
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral(
                                     "La somme des débits n'égale pas la somme des crédits ! ")});
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Critique);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 0);
        QVERIFY(e.isVisible());
    }

    void echeanceDansLesTroisMois_passeSansQuestion() {
        PreparerVente();
        ecran::SaisQuad e;
        e.show();
        QVERIFY(TaperMontant(&e, "7071", "100"));
        QVERIFY(TaperMontant(&e, "445711", "20"));
        QVERIFY(TaperMontant(&e, "411", "120"));
        e.findChild<QLineEdit*>("Text2")->setText(QStringLiteral("Facture à 30 jours"));
        ui::FixerTexteDate(e.findChild<QLineEdit*>("Text3"), QStringLiteral("15/06/2024"));
        // L'échéance n'est écrite qu'avec un montant validé : le dernier la porte.
        QVERIFY(TaperMontant(&e, "411", "120"));
        QCOMPARE(Champ("wDateEcheance", "411"), QStringLiteral("20240615"));
        QCOMPARE(Champ("wMoisEcheance", "411"), QStringLiteral("06"));
        QCOMPARE(Champ("wDateEcheance", "7071"), QStringLiteral("________"));
        QVERIFY(support::CliquerBouton(&e, "Command1"));
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 3);
        QCOMPARE(session().FormatMontant, QStringLiteral("### ### ### ##0.00 E"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisQuad t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_saisquad.moc"
