// Menus de saisie : choix du type de saisie, familles et lignes tirées de Tableau, clé du
// menu, refus de "Suivant->", écriture du résultat au dernier jour, pile des écrans.

#include "support/DossierEssai.h"
#include "support/ExerciceEssai.h"
#include "support/PiloteModal.h"

#include "entry/Choisais.h"
#include "entry/LigneMenu.h"
#include "entry/Saislog.h"
#include "session/Session.h"
#include "ui/Application.h"

#include <QListWidget>
#include <QtTest>

using namespace essai;
using support::PiloteModal;

namespace {

const QString kMenuADroite = QStringLiteral("N'oubliez pas de sélectionner un menu à droite.");
const QString kResultat =
    QStringLiteral("Pour passer l'écriture du résultat il faut que la date de saisie soit "
                   "identique à la date de fin d'exercice.");

int LignesSaisie() {
    return Compter("SELECT COUNT(*) FROM wSaisie");
}

void PoserLigneSaisie() {
    Base().exec("INSERT INTO wSaisie (wNumEcrt, wNumCpt) VALUES (1, '512')");
}

// Libellés des lignes de la famille, tels que Tableau les porte (case 1, lignes sans trou).
QStringList MenusDeFamille(int famille) {
    QStringList l;
    table::Tableau t;
    for (int n = 1; LireLigneMenu(QString::number(famille) + QString::number(n) + u'1', t); ++n)
        l << t.tLibMenuprinc;
    return l;
}

QStringList Lignes(QWidget* racine, const char* liste) {
    QStringList l;
    auto* w = racine->findChild<QListWidget*>(QString::fromLatin1(liste));
    for (int i = 0; w && i < w->count(); ++i)
        l << w->item(i)->text();
    return l;
}

} // namespace

class TestSaislog : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*dossier);
        session().CleMenuSaisie.clear();
        ui::ViderJournalBoites();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void lireLigneMenu_absentGardeLEnregistrement() {
        table::Tableau t;
        t.tMessage = QStringLiteral("avant");
        QVERIFY(!LireLigneMenu(QStringLiteral("991"), t));
        QCOMPARE(t.tMessage, QStringLiteral("avant"));
        QVERIFY(LireLigneMenu(QStringLiteral("111"), t));
        QCOMPARE(t.tMenuLigne, QStringLiteral("111"));
        QCOMPARE(t.tJournal, QStringLiteral("V"));
        QCOMPARE(t.tLibMenuprinc.size(), 50);
        QVERIFY(t.tTaille >= 1);
        QVERIFY(ClasseAutorisee(t, 1) > 0);
    }

    void classeAuDelaDeVingt_erreurDExecution() {
        table::Tableau t;
        QVERIFY(LireLigneMenu(QStringLiteral("111"), t));
        t.tMenuAutorise = QString(255, QLatin1Char('1'));
        QCOMPARE(ClasseAutorisee(t, 20), 111);
        QVERIFY_THROWS_EXCEPTION(ErreurExecution, ClasseAutorisee(t, 21));
    }

    void choisais_videWSaisieAuChargement() {
        PoserLigneSaisie();
        ecran::Choisais e;
        QCOMPARE(e.objectName(), QStringLiteral("Choisais"));
        QCOMPARE(e.windowTitle(), QStringLiteral("Choix du type de saisie"));
        QCOMPARE(LignesSaisie(), 0);
    }

    void clicFamille_remplitLesLignesDeTableau() {
        ecran::Saislog e;
        e.show();
        for (int famille = 1; famille <= 5; ++famille) {
            QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List1"), famille - 1));
            QCOMPARE(session().CleMenuSaisie, QString::number(famille));
            const QStringList attendus = MenusDeFamille(famille);
            QVERIFY(!attendus.isEmpty());
            QCOMPARE(Lignes(&e, "List2"), attendus);
        }
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List2"), 1));
        QCOMPARE(session().CleMenuSaisie, QStringLiteral("52"));
    }

    void familleSansLigneUn_listeVide() {
        Base().exec("DELETE FROM Tableau WHERE tMenuLigne = '211'");
        ecran::Saislog e;
        e.show();
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List1"), 1));
        QVERIFY(Lignes(&e, "List2").isEmpty());
    }

    void ligneApresUnTrou_jamaisOfferte() {
        const QStringList avant = MenusDeFamille(4);
        QVERIFY(avant.size() >= 3);
        Base().exec("DELETE FROM Tableau WHERE tMenuLigne = '421'");
        ecran::Saislog e;
        e.show();
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List1"), 3));
        QCOMPARE(Lignes(&e, "List2"), QStringList{avant.first()});
    }

    void clicFamilleApresLigne_suivantRefuse() {
        PoserLigneSaisie();
        ecran::Saislog e;
        e.show();
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List1"), 0));
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List2"), 0));
        QCOMPARE(session().CleMenuSaisie, QStringLiteral("11"));
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List1"), 0));
        QCOMPARE(session().CleMenuSaisie, QStringLiteral("1"));
        QVERIFY(!Lignes(&e, "List2").isEmpty());
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerBouton(&e, QStringLiteral("Command1")));
        QCOMPARE(TextesBoites(), QStringList{kMenuADroite});
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Information);
        QCOMPARE(LignesSaisie(), 0);
    }

    void resultatHorsDateDeFin_refuseEtWSaisieVide() {
        PoserLigneSaisie();
        ecran::Saislog e;
        e.show();
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List1"), 4));
        QVERIFY(support::ChoisirLigneListe(&e, QStringLiteral("List2"), 6));
        QCOMPARE(session().CleMenuSaisie, QStringLiteral("57"));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerBouton(&e, QStringLiteral("Command1")));
        QCOMPARE(TextesBoites(), QStringList{kResultat});
        QCOMPARE(LignesSaisie(), 0);
        QCOMPARE(session().CleMenuSaisie, QStringLiteral("57"));
    }

    void pile_retourRemontreChoisaisQuitterLeDecharge() {
        PiloteModal p;
        bool choisaisCache = false;
        p.Attendre(QStringLiteral("Choisais"), support::Cliquer(QStringLiteral("Command1")))
            .Attendre(QStringLiteral("Saislog"),
                      [&](QWidget* w) {
                          choisaisCache = !w->parentWidget()->isVisible();
                          support::CliquerBouton(w, QStringLiteral("Command2"));
                      })
            .Attendre(QStringLiteral("Choisais"), support::Cliquer(QStringLiteral("Command1")))
            .Attendre(QStringLiteral("Saislog"), support::Cliquer(QStringLiteral("Command3")))
            .Attendre(QStringLiteral("Choisais"), support::Cliquer(QStringLiteral("Command3")));
        p.Demarrer();
        ecran::Choisais e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(p.Reussi(), qPrintable(p.Echec()));
        QVERIFY(choisaisCache);
        QVERIFY(!e.isVisible());
        QVERIFY(ui::JournalBoites().isEmpty());
    }
    void choisais_ouvreAnnulationEtChangementDeLibelle() {
        GardeBoites garde;
        PiloteModal p;
        p.Attendre(QStringLiteral("Choisais"), support::Cliquer(QStringLiteral("Command4")))
            .Attendre(QStringLiteral("Annul"), support::Fermer())
            .Attendre(QStringLiteral("Choisais"), support::Cliquer(QStringLiteral("Command6")))
            .Attendre(QStringLiteral("ModifLib"), support::Fermer())
            .Attendre(QStringLiteral("Choisais"), support::Cliquer(QStringLiteral("Command3")));
        p.Demarrer();
        ecran::Choisais e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(p.Reussi(), qPrintable(p.Echec()));
        QVERIFY(!e.isVisible());
        QCOMPARE(garde.inattendues, QStringList());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaislog t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_saislog.moc"
