// Pile des écrans modaux et pilote des tests : "<-Retour", "&Quitter", boîte au milieu,
// échec du pilote quand l'écran attendu ne vient pas.
#include "EcransEssai.h"
#include "support/DossierEssai.h"
#include "support/PiloteModal.h"
#include "ui/Boite.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QtTest>

using namespace ui;
using namespace support;

class TestPile : public QObject {
    Q_OBJECT
private slots:
    void init() { RemettreServicesAZero(); }

    // A ouvre B, B pose une question (boîte) puis ouvre C, "&Quitter" de C ferme les trois,
    // du haut vers le bas.
    void troisEcransBoiteAuMilieuEtQuitterDepuisLeDernier() {
        DossierEssai dossier;
        QStringList fermetures;
        EcranEssai a(QStringLiteral("A"), &fermetures);
        a.FixerDebutChaine(true);
        bool aCacheQuandB = false, aEtBCachesQuandC = false;
        a.ouvrirSuite = [&](EcranEssai* parent) {
            EcranEssai b(QStringLiteral("B"), &fermetures, parent);
            b.ouvrirSuite = [&](EcranEssai* parentB) {
                if (Boite(QStringLiteral("Voulez-vous continuer ?"), QStringLiteral("Maroval"),
                          Icone::Question, Boutons::OuiNon, 1) != Reponse::Oui)
                    return;
                EcranEssai c(QStringLiteral("C"), &fermetures, parentB);
                c.exec();
            };
            b.exec();
        };
        PiloteModal pilote;
        pilote.Attendre("A", Cliquer("Command1"))
            .Attendre("B",
                      [&](QWidget* b) {
                          aCacheQuandB = !a.isVisible() && b->isVisible();
                          CliquerBouton(b, "Suivant->");
                      })
            .AttendreBoite("Voulez-vous continuer ?", "Oui")
            .Attendre("C", [&](QWidget* c) {
                aEtBCachesQuandC = !a.isVisible() && PileModale::Ecrans().size() == 3 &&
                                   !PileModale::Ecrans()[1]->isVisible();
                CliquerBouton(c, "&Quitter");
            });
        pilote.Demarrer();
        const int resultat = a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(pilote.Vus(),
                 QStringList({"écran modal « A »", "écran modal « B »",
                              "boîte « Voulez-vous continuer ? »", "écran modal « C »"}));
        QVERIFY(aCacheQuandB);
        QVERIFY(aEtBCachesQuandC);
        QCOMPARE(fermetures, QStringList({"C", "B", "A"}));
        QCOMPARE(resultat, int(EcranModal::CodeQuitter));
        QVERIFY(a.Quitte());
        QVERIFY(!a.isVisible());
        QVERIFY(PileModale::Ecrans().isEmpty());
        QCOMPARE(JournalBoites().size(), 1);
        QCOMPARE(JournalBoites()[0].texte, QString("Voulez-vous continuer ?"));
        QCOMPARE(JournalBoites()[0].icone, Icone::Question);
        QCOMPARE(JournalBoites()[0].reponse, Reponse::Oui);
    }

    void retourRemontreLEcranDuDessous() {
        QStringList fermetures;
        EcranEssai a(QStringLiteral("A"), &fermetures);
        a.FixerDebutChaine(true);
        bool bRevenu = false, aRevenu = false;
        a.ouvrirSuite = [&](EcranEssai* p) {
            EcranEssai b(QStringLiteral("B"), &fermetures, p);
            b.ouvrirSuite = [&](EcranEssai* pb) {
                EcranEssai c(QStringLiteral("C"), &fermetures, pb);
                c.exec();
            };
            QCOMPARE(b.exec(), int(EcranModal::CodeRetour));
        };
        PiloteModal pilote;
        pilote.Attendre("A", Cliquer("Command1"))
            .Attendre("B", Cliquer("Command1"))
            .Attendre("C", Cliquer("<-Retour"))
            .Attendre("B",
                      [&](QWidget* b) {
                          bRevenu = b->isVisible() && !a.isVisible();
                          CliquerBouton(b, "Command2");
                      })
            .Attendre("A", [&](QWidget* w) {
                aRevenu = w->isVisible() && PileModale::Ecrans().size() == 1;
                CliquerBouton(w, "Command3");
            });
        pilote.Demarrer();
        a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(bRevenu);
        QVERIFY(aRevenu);
        QCOMPARE(fermetures, QStringList({"C", "B", "A"}));
    }

    void quitterLaisseTournerLesEvenementsEntreDeuxDechargements() {
        QStringList fermetures;
        EcranEssai a(QStringLiteral("A"), &fermetures);
        a.FixerDebutChaine(true);
        a.ouvrirSuite = [&](EcranEssai* p) {
            EcranEssai b(QStringLiteral("B"), &fermetures, p);
            connect(&b, &QDialog::finished, &b,
                    [&] { QTimer::singleShot(0, [&] { fermetures << "événement"; }); });
            b.exec();
        };
        PiloteModal pilote;
        pilote.Attendre("A", Cliquer("Command1")).Attendre("B", Cliquer("Command3"));
        pilote.Demarrer();
        a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(fermetures, QStringList({"B", "événement", "A"}));
    }

    void quitterHorsChaineNeFermeQueLEcran() {
        QStringList fermetures;
        EcranEssai consult(QStringLiteral("Consult"), &fermetures);
        consult.ouvrirSuite = [&](EcranEssai* p) {
            EcranEssai journal(QStringLiteral("Journal"), &fermetures, p);
            journal.FixerMasquerDessous(false);
            journal.exec();
        };
        bool consultVisible = false;
        PiloteModal pilote;
        pilote.Attendre("Consult", Cliquer("Command1"))
            .Attendre("Journal",
                      [&](QWidget* j) {
                          consultVisible = consult.isVisible();
                          CliquerBouton(j, "Command3");
                      })
            .Attendre("Consult", Cliquer("Command3"));
        pilote.Demarrer();
        consult.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(consultVisible);
        QCOMPARE(fermetures, QStringList({"Journal", "Consult"}));
    }

    void quitterNiveauxArreteOuDemande() {
        QStringList fermetures;
        EcranEssai a(QStringLiteral("A"), &fermetures);
        a.ouvrirSuite = [&](EcranEssai* p) {
            EcranEssai b(QStringLiteral("B"), &fermetures, p);
            b.ouvrirSuite = [&](EcranEssai* pb) {
                EcranEssai c(QStringLiteral("C"), &fermetures, pb);
                c.exec();
            };
            b.exec();
        };
        PiloteModal pilote;
        pilote.Attendre("A", Cliquer("Command1"))
            .Attendre("B", Cliquer("Command1"))
            .Attendre("C", [](QWidget* c) { static_cast<EcranModal*>(c)->QuitterNiveaux(2); })
            .Attendre("A", Cliquer("Command2"));
        pilote.Demarrer();
        a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(fermetures, QStringList({"C", "B", "A"}));
    }

    // Le pilote lui-même : l'écran attendu ne vient pas, le pilote échoue dans son délai et
    // ferme tout (les écrans cachés de la pile compris), sans faire échouer ce test.
    void ecranAttenduAbsentFaitEchouerLePiloteEtFermeTout() {
        QStringList fermetures;
        EcranEssai a(QStringLiteral("A"), &fermetures);
        a.FixerDebutChaine(true);
        a.ouvrirSuite = [&](EcranEssai* p) {
            EcranEssai b(QStringLiteral("B"), &fermetures, p);
            b.exec();
        };
        PiloteModal pilote(300);
        QString signale;
        connect(&pilote, &PiloteModal::echec, [&](const QString& m) { signale = m; });
        pilote.Attendre("A", Cliquer("Command1"))
            .Attendre("B", [](QWidget*) {})
            .Attendre("Inexistant", Cliquer("Command1"));
        QElapsedTimer chrono;
        chrono.start();
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^PiloteModal : Étape 3"));
        pilote.Demarrer();
        a.exec();
        QVERIFY(chrono.elapsed() < 3000);
        QVERIFY(chrono.elapsed() >= 300);
        QVERIFY(pilote.Echoue());
        QVERIFY(!pilote.Reussi());
        QCOMPARE(pilote.EtapesFaites(), 2);
        QCOMPARE(pilote.Echec(),
                 QString("Étape 3 : écran modal « Inexistant » attendue en 300 ms ; fenêtre "
                         "modale active : « B »"));
        QCOMPARE(signale, pilote.Echec());
        QCOMPARE(fermetures, QStringList({"B", "A"}));
        QVERIFY(!a.isVisible());
        QVERIFY(PileModale::Ecrans().isEmpty());
        QVERIFY(!QApplication::activeModalWidget());
    }

    void boutonIntrouvableFaitEchouerLePilote() {
        EcranEssai a(QStringLiteral("A"), nullptr);
        PiloteModal pilote(1000);
        pilote.Attendre("A", Cliquer("Command9"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Bouton « Command9 » introuvable"));
        pilote.Demarrer();
        a.exec();
        QVERIFY(pilote.Echoue());
        QCOMPARE(pilote.Echec(), QString("Bouton « Command9 » introuvable dans « A »"));
    }

    void boutonDesactiveFaitEchouerLePilote() {
        EcranEssai a(QStringLiteral("A"), nullptr);
        a.findChild<QPushButton*>("Command1")->setEnabled(false);
        PiloteModal pilote(1000);
        pilote.Attendre("A", Cliquer("Suivant->"));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("désactivé"));
        pilote.Demarrer();
        a.exec();
        QVERIFY(pilote.Echoue());
        QCOMPARE(pilote.Echec(), QString("Bouton « Suivant-> » de « A » désactivé"));
    }

    void boiteAuTexteDifferentNEstPasReconnue() {
        PiloteModal pilote(300);
        pilote.AttendreBoite("Texte attendu", "OK");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Texte reçu"));
        pilote.Demarrer();
        QCOMPARE(Boite("Texte reçu", "Maroval", Icone::Information, Boutons::OuiNon), Reponse::Non);
        QVERIFY(pilote.Echoue());
        QVERIFY(pilote.Echec().contains("« Boite » (« Texte reçu »)"));
    }

    void fenetreModaleRestanteApresLaDerniereEtapeFaitEchouer() {
        EcranEssai a(QStringLiteral("A"), nullptr);
        PiloteModal pilote(200);
        pilote.Attendre("A", [](QWidget*) {});
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("reste ouverte"));
        pilote.Demarrer();
        a.exec();
        QVERIFY(pilote.Echoue());
        QCOMPARE(pilote.Echec(), QString("Après la dernière étape, « A » reste ouverte"));
    }

    void gestesTaperToucheEtListe() {
        EcranEssai a(QStringLiteral("A"), nullptr);
        a.FixerEchapFerme(true);
        auto* champ = new QLineEdit(&a);
        champ->setObjectName("Text1");
        auto* liste = new QListWidget(&a);
        liste->setObjectName("List1");
        liste->addItems({"Factures des clients", "Factures des fournisseurs", "Banque"});
        a.layout()->addWidget(champ);
        a.layout()->addWidget(liste);
        QString double1;
        connect(liste, &QListWidget::itemDoubleClicked,
                [&](QListWidgetItem* i) { double1 = i->text(); });
        int echap = 0;
        PiloteModal pilote;
        pilote.Attendre(
            "A", Suite({Taper("Text1", "Libellé é"), ChoisirTexte("List1", "Banque"),
                        DoubleCliquerLigne("List1", 1),
                        [&](QWidget*) { echap = liste->currentRow(); }, Touche(Qt::Key_Escape)}));
        pilote.Demarrer();
        const int r = a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(champ->text(), QString("Libellé é"));
        QCOMPARE(echap, 1);
        QCOMPARE(double1, QString("Factures des fournisseurs"));
        QCOMPARE(r, int(QDialog::Rejected));
    }
};

// Entrée et Echap sur un écran : comme dans l'ancien programme, Entrée dans un champ ne
// clique aucun bouton, sauf celui marqué par défaut ; Echap ne ferme pas l'écran.
class TestTouchesEcran : public QObject {
    Q_OBJECT
private slots:
    void entreeEtEchapNeFermentPasLEcran() {
        EcranEssai a(QStringLiteral("A"), nullptr);
        auto* champ = new QLineEdit(&a);
        champ->setObjectName("Text1");
        a.layout()->addWidget(champ);
        int suites = 0;
        a.ouvrirSuite = [&](EcranEssai*) { ++suites; };
        bool ouvert = false;
        PiloteModal pilote;
        pilote.Attendre("A", [&](QWidget* w) {
            TaperTexte(w, "Text1", "abc");
            AppuyerTouche(w, Qt::Key_Return, "Text1");
            AppuyerTouche(w, Qt::Key_Escape, "Text1");
            QCoreApplication::processEvents();
            ouvert = w->isVisible();
            CliquerBouton(w, "Command2");
        });
        pilote.Demarrer();
        a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(ouvert);
        QCOMPARE(suites, 0);
    }

    void entreeActionneLeBoutonParDefaut() {
        EcranEssai a(QStringLiteral("A"), nullptr);
        auto* champ = new QLineEdit(&a);
        champ->setObjectName("Text1");
        a.layout()->addWidget(champ);
        a.findChild<QPushButton*>("Command3")->setDefault(true);
        PiloteModal pilote;
        pilote.Attendre("A", Suite({Taper("Text1", "x"), Touche(Qt::Key_Return, "Text1")}));
        pilote.Demarrer();
        QCOMPARE(a.exec(), int(EcranModal::CodeQuitter));
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
    }
};

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    TestPile pile;
    TestTouchesEcran touches;
    return QTest::qExec(&pile, argc, argv) | QTest::qExec(&touches, argc, argv);
}
#include "test_ui_pile.moc"
