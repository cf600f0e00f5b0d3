// Choix des comptes : comptes offerts par case, lignes préparées de wSaisie marquées par
// leur case, refus d'un compte déjà présent, retrait, seuil de deux comptes, rappel après
// une écriture passée.

#include "support/DonneesReference.h"
#include "support/DossierEssai.h"
#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "entry/ChoixCpt.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>

using namespace essai;

namespace {

const QString kDeuxComptes =
    QStringLiteral("Il faut au moins deux comptes pour passer une écriture.");

ui::Grille* Grille(QWidget* e, const char* nom) {
    return e->findChild<ui::Grille*>(QString::fromLatin1(nom));
}

QStringList Numeros(ui::Grille* g) {
    QStringList l;
    for (int i = 0; i < g->NombreLignes(); ++i)
        l << g->Texte(i, 0).trimmed();
    return l;
}

// Double clic sur le compte dans Tree1, comme l'utilisateur le choisit.
bool Choisir(QWidget* e, const QString& numero) {
    ui::Grille* g = Grille(e, "Tree1");
    const int ligne = Numeros(g).indexOf(numero);
    if (ligne < 0) return false;
    return support::CliquerCellule(g, ligne, 0, true);
}

table::Saisie LigneSaisie(const QString& numero) {
    table::Saisie r;
    SQLite::Statement q(Base(), "SELECT wNumEcrt, wJournal, wRappel, wSigne, wNombre, "
                                "wMenuLigne, wMntEcr, wErEcr FROM wSaisie WHERE wNumCpt=?");
    q.bind(1, numero.toStdString());
    if (q.executeStep()) {
        r.wNumEcrt = q.getColumn(0).getDouble();
        r.wJournal = Colonne(q, 1);
        r.wRappel = q.getColumn(2).getInt() != 0;
        r.wSigne = Colonne(q, 3);
        r.wNombre = Colonne(q, 4);
        r.wMenuLigne = Colonne(q, 5);
        r.wMntEcr = Montant::depuisDixMilliemes(q.getColumn(6).getInt64());
        r.wErEcr = Colonne(q, 7);
    }
    return r;
}

} // namespace

class TestChoixCpt : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*dossier);
        CopierPlan(QStringLiteral("0001"));
        session().CleMenuSaisie = QStringLiteral("11");
        session().EcriturePassee = false;
        ui::ViderJournalBoites();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void chargement_titreOptionsEtComptesDeLaCaseUn() {
        ecran::ChoixCpt e;
        e.show();
        QCOMPARE(e.windowTitle(), QStringLiteral("Choix des Comptes"));
        QCOMPARE(session().LigneMenuSaisie, CaseDeMenu("111").tLibMenuprinc.leftJustified(50));
        QCOMPARE(e.findChild<QLabel*>("Label3")->text().trimmed(), CaseDeMenu("111").tLibMenuprinc);
        QCOMPARE(e.findChild<QRadioButton*>("Option2")->text().trimmed(),
                 CaseDeMenu("112").tMessage);
        QVERIFY(e.findChild<QRadioButton*>("Option1")->isChecked());
        QVERIFY(e.findChild<QCheckBox*>("BCrappel")->isVisible());
        QCOMPARE(Numeros(Grille(&e, "Tree1")), ComptesProposes(CaseDeMenu("111")));
        QVERIFY(Grille(&e, "Tree1")->NombreLignes() > 0);
    }

    void menuSansRappel_caseCacheeEtCochee_caseAbsenteInutilisee() {
        Base().exec("DELETE FROM Tableau WHERE tMenuLigne='123'");
        session().CleMenuSaisie = QStringLiteral("12");
        ecran::ChoixCpt e;
        e.show();
        auto* rappel = e.findChild<QCheckBox*>("BCrappel");
        QVERIFY(!rappel->isVisible());
        QVERIFY(rappel->isChecked());
        auto* o3 = e.findChild<QRadioButton*>("Option3");
        QVERIFY(!o3->isEnabled());
        QCOMPARE(o3->text(), QStringLiteral("<Inutilisé>"));
    }

    void compteChoisi_ligneMarqueeParSaCase() {
        ecran::ChoixCpt e;
        e.show();
        QVERIFY(Choisir(&e, "7071"));
        CliquerOption(&e, "Option3");
        QCOMPARE(Numeros(Grille(&e, "Tree1")), ComptesProposes(CaseDeMenu("113")));
        QVERIFY(Choisir(&e, "411"));
        const table::Saisie vente = LigneSaisie("7071");
        QCOMPARE(vente.wNumEcrt, 1.0);
        QCOMPARE(vente.wMenuLigne, QStringLiteral("111"));
        QCOMPARE(vente.wJournal, QStringLiteral("V"));
        QVERIFY(vente.wRappel);
        QCOMPARE(vente.wSigne, QStringLiteral("1"));
        QCOMPARE(vente.wMntEcr, Montant());
        QCOMPARE(vente.wErEcr, QStringLiteral("R2"));
        const table::Saisie client = LigneSaisie("411");
        QCOMPARE(client.wNumEcrt, 2.0);
        QCOMPARE(client.wMenuLigne, QStringLiteral("113"));
        QVERIFY(!client.wRappel);
        // Les comptes choisis se montrent dans l'ordre des cases.
        QCOMPARE(Numeros(Grille(&e, "Tree2")), (QStringList{"7071", "411"}));
    }

    void memeCompteDUneAutreCase_refuseEtGardeSaMarque() {
        Base().exec("UPDATE Tableau SET tTaille=1, tMenuAutorise='999' WHERE tMenuLigne='112'");
        ecran::ChoixCpt e;
        e.show();
        QVERIFY(Choisir(&e, "7071"));
        CliquerOption(&e, "Option2");
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(Choisir(&e, "7071"));
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("Le compte \"7071     %1\" est déjà présent.")
                                 .arg(LireCpt("7071").LibCpt.trimmed())});
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Exclamation);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 1);
        QCOMPARE(LigneSaisie("7071").wMenuLigne, QStringLiteral("111"));
    }

    void classe999Seule_toutLePlanSaufQuatre() {
        Base().exec("UPDATE Tableau SET tTaille=1, tMenuAutorise='999' WHERE tMenuLigne='111'");
        ecran::ChoixCpt e;
        e.show();
        const QStringList l = Numeros(Grille(&e, "Tree1"));
        QCOMPARE(l.size(), Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='012024'") - 4);
        for (const char* exclu : {"400", "410", "699", "799"})
            QVERIFY(!l.contains(QString::fromLatin1(exclu)));
    }

    void classe999ParmiDeux_neDonneRien_autresOptionsUtilisables() {
        Base().exec("UPDATE Tableau SET tTaille=2, tMenuAutorise='999 998' WHERE "
                    "tMenuLigne='111'");
        ecran::ChoixCpt e;
        e.show();
        QCOMPARE(Grille(&e, "Tree1")->NombreLignes(), 0);
        CliquerOption(&e, "Option3");
        QVERIFY(Grille(&e, "Tree1")->NombreLignes() > 0);
        QVERIFY(Choisir(&e, "411"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 1);
    }

    void toutRetire_suivantDemandeDeuxComptes() {
        ecran::ChoixCpt e;
        e.show();
        QVERIFY(Choisir(&e, "7071"));
        CliquerOption(&e, "Option3");
        QVERIFY(Choisir(&e, "411"));
        ui::Grille* choisis = Grille(&e, "Tree2");
        while (choisis->NombreLignes() > 0)
            QVERIFY(support::CliquerCellule(choisis, 0, 0, true));
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerBouton(&e, "Command3"));
        QCOMPARE(TextesBoites(), QStringList{kDeuxComptes});
        // Le compteur des lignes ne redescend pas : les numéros restent uniques.
        CliquerOption(&e, "Option1");
        QVERIFY(Choisir(&e, "7071"));
        QCOMPARE(LigneSaisie("7071").wNumEcrt, 3.0);
    }

    void detailSansSelection_message() {
        ecran::ChoixCpt e;
        e.show();
        Grille(&e, "Tree1")->clearSelection();
        Grille(&e, "Tree1")->FixerLigneCourante(-1);
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerBouton(&e, "Command8"));
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Aucun compte n'est sélectionné !")});
    }

    void apresEcriture_avecRappel_comptesRappelesAZeroEtOptionClient() {
        ecran::ChoixCpt e;
        e.show();
        QVERIFY(Choisir(&e, "7071"));
        CliquerOption(&e, "Option3");
        QVERIFY(Choisir(&e, "411"));
        Base().exec("UPDATE wSaisie SET wMntEcr=1000000");
        Base().exec("INSERT INTO wSaisie (wNumEcrt, wNumCpt, wRappel) VALUES (9, '677', 1)");
        e.hide();
        session().EcriturePassee = true;
        e.show();
        QVERIFY(e.findChild<QRadioButton*>("Option3")->isChecked());
        QCOMPARE(Numeros(Grille(&e, "Tree2")), QStringList{"7071"});
        QCOMPARE(LigneSaisie("7071").wMntEcr, Montant());
        QCOMPARE(LigneSaisie("7071").wNumEcrt, 1.0);
        // La suite reprend après le dernier numéro donné.
        QVERIFY(Choisir(&e, "411"));
        QCOMPARE(LigneSaisie("411").wNumEcrt, 3.0);
    }

    void apresEcriture_sansRappel_toutEstVide() {
        ecran::ChoixCpt e;
        e.show();
        QVERIFY(Choisir(&e, "7071"));
        e.findChild<QCheckBox*>("BCrappel")->setChecked(false);
        e.hide();
        session().EcriturePassee = true;
        e.show();
        QVERIFY(e.findChild<QRadioButton*>("Option1")->isChecked());
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
        QCOMPARE(Grille(&e, "Tree2")->NombreLignes(), 0);
    }
    void nouveauCompte_plan2OuvertSurLaCreationPuisListeRelue() {
        bool creation = false;
        support::PiloteModal p;
        p.Attendre("ChoixCpt", support::Cliquer("Command1"))
            .Attendre("Plan2",
                      [&](QWidget* w) {
                          auto* general = w->findChild<QRadioButton*>("BRgeneral");
                          creation = general && general->isChecked() &&
                                     w->findChild<QWidget*>("Frame3")->isVisible();
                          // Un compte de vente créé pendant le détour.
                          Compte("70799", "Ventes créées en cours de saisie");
                          support::CliquerBouton(w, "Command4");
                      })
            .Attendre("ChoixCpt", support::Cliquer("Command7"));
        p.Demarrer();
        ecran::ChoixCpt e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(p.Reussi(), qPrintable(p.Echec()));
        QVERIFY(creation);
        QVERIFY(Numeros(Grille(&e, "Tree1")).contains("70799"));
    }

    void detailDuCompte_retourGardeLOption() {
        support::PiloteModal p;
        p.Attendre("ChoixCpt",
                   [](QWidget* w) {
                       CliquerOption(w, "Option3");
                       support::CliquerCellule(Grille(w, "Tree1"), 0, 0);
                       support::CliquerBouton(w, "Command8");
                   })
            .Attendre("DetailCp", support::Cliquer("Command1"))
            .Attendre("ChoixCpt", [](QWidget* w) {
                if (!w->findChild<QRadioButton*>("Option3")->isChecked())
                    support::SignalerEchec("L'option a changé au retour du détail");
                support::CliquerBouton(w, "Command7");
            });
        p.Demarrer();
        ecran::ChoixCpt e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(p.Reussi(), qPrintable(p.Echec()));
        QCOMPARE(session().CompteChoisi, ComptesProposes(CaseDeMenu("113")).first());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestChoixCpt t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_choixcpt.moc"
