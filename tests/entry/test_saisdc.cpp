// Saisie en débits et crédits par les écrans : le choix du journal, une écriture sur
// chaque journal passée par le moteur, et les listes de comptes propres à chaque journal.

#include "EssaiSaisDC.h"

#include "entry/SaisDC.h"
#include "ui/Application.h"

#include <QGroupBox>
#include <QRadioButton>

using namespace essai;

class TestSaisDC : public QObject {
    Q_OBJECT
    EcranDC dc;

private slots:
    void init() { dc.Preparer(); }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        dc.Liberer();
    }

    void choixDuJournal_messagesEtTresorerie() {
        Executer("INSERT INTO wSaisie (wNumCpt) VALUES ('512')");
        Executer("UPDATE Constante SET DateSaisie='20240315'");
        ecran::SaisDC s;
        s.show();
        QCOMPARE(s.windowTitle(), QStringLiteral("Saisie Débits / Crédits"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
        auto* frame2 = s.findChild<QGroupBox*>("Frame2");
        QVERIFY(!frame2->isVisible());
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(s.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), QStringLiteral("Sélectionnez un Journal avant de faire Suite"));
        EcranDC::CliquerOption(s.findChild<QRadioButton*>("Option3"));
        QVERIFY(frame2->isVisible());
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(s.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), QStringLiteral("Sélectionnez un menu dans la liste de droite"));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Exclamation);
        EcranDC::CliquerOption(s.findChild<QRadioButton*>("Option11"));

        QString titre;
        QStringList comptes;
        support::PiloteModal pilote;
        pilote.Attendre("SaisDC2", [&](QWidget* f) {
            titre = f->windowTitle();
            auto* t1 = f->findChild<ui::Grille*>("Tree1");
            for (int l = 0; l < t1->NombreLignes(); ++l)
                comptes << t1->Texte(l, 0);
            support::CliquerBouton(f, "Command2");
        });
        pilote.Demarrer();
        QTest::mouseClick(s.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(titre,
                 QStringLiteral(
                     "Saisie Débits / Crédits : Journal de trésorerie : Règlements fournisseurs"));
        QCOMPARE(comptes, (QStringList{"401001", "512", "530"}));
        QCOMPARE(session().JournalSaisie, QStringLiteral("T"));
        QCOMPARE(session().LigneMenuSaisie, QStringLiteral("32"));
        // Un autre journal cache les opérations de trésorerie.
        EcranDC::CliquerOption(s.findChild<QRadioButton*>("Option4"));
        QVERIFY(!frame2->isVisible());
    }

    void doubleClicSurUnJournalPuisQuitter_toutLaChaineSeDecharge() {
        Executer("UPDATE Constante SET DateSaisie='20240315'");
        ecran::SaisDC s;
        s.FixerDebutChaine(true);
        QString titre;
        support::PiloteModal pilote;
        pilote
            .Attendre("SaisDC",
                      [](QWidget* f) {
                          auto* o = f->findChild<QRadioButton*>("Option4");
                          QTest::mouseDClick(o, Qt::LeftButton, Qt::NoModifier,
                                             QPoint(8, o->height() / 2));
                      })
            .Attendre("SaisDC2", [&](QWidget* f) {
                titre = f->windowTitle();
                support::CliquerBouton(f, "Command5");
            });
        pilote.Demarrer();
        s.exec();
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(titre,
                 QStringLiteral("Saisie Débits / Crédits : Journal des opérations diverses"));
        QVERIFY(s.Quitte());
        QVERIFY(!s.Charge());
    }

    void comptesParJournal_data() {
        QTest::addColumn<QString>("journal");
        QTest::addColumn<QString>("ligne");
        QTest::addColumn<QStringList>("comptes");
        QTest::addColumn<QString>("titre");
        const QStringList toutSaufResultats{"101", "2154", "401001", "411001", "44566", "44571",
                                            "512", "530",  "607",    "626",    "707"};
        QTest::newRow("ventes") << "V"
                                << "" << QStringList{"411001", "44571", "707"}
                                << "Journal des ventes";
        QTest::newRow("achats") << "A"
                                << "" << QStringList{"401001", "44566", "607"}
                                << "Journal des achats";
        QTest::newRow("T31") << "T"
                             << "31" << QStringList{"411001", "512", "530"}
                             << "Journal de trésorerie : Encaissements clients";
        QTest::newRow("T33") << "T"
                             << "33" << QStringList{"44571", "512", "530", "707"}
                             << "Journal de trésorerie : Encaissements produits";
        QTest::newRow("T34") << "T"
                             << "34" << QStringList{"44566", "512", "530", "607", "626"}
                             << "Journal de trésorerie : Règlements charges";
        QTest::newRow("T37") << "T"
                             << "37" << toutSaufResultats
                             << "Journal de trésorerie : Encaissements/Règlements divers";
        QTest::newRow("OD") << "D"
                            << "" << toutSaufResultats << "Journal des opérations diverses";
        QStringList inventaire = toutSaufResultats;
        inventaire.insert(10, "699");
        inventaire << "799";
        QTest::newRow("inventaire") << "I"
                                    << "" << inventaire << "Journal d'inventaire";
    }
    void comptesParJournal() {
        QFETCH(QString, journal);
        QFETCH(QString, ligne);
        QFETCH(QStringList, comptes);
        QFETCH(QString, titre);
        dc.Ouvrir(journal, ligne);
        QCOMPARE(dc.Comptes(), comptes);
        // Les comptes du résultat ne s'offrent qu'au journal d'inventaire.
        for (const char* resultat : {"699", "799"})
            QCOMPARE(dc.Comptes().contains(resultat), journal == "I");
        QCOMPARE(dc.e->windowTitle(), QStringLiteral("Saisie Débits / Crédits : ") + titre);
        const bool echeance = journal == "V" || journal == "A";
        QCOMPARE(dc.Champ("Text3")->isVisible(), echeance);
        QCOMPARE(dc.e->findChild<QLabel*>("Label5")->isVisible(), echeance);
        QCOMPARE(dc.Texte("Label1"), QStringLiteral("1"));
        QCOMPARE(dc.Champ("Text1")->text(), QStringLiteral("15/03/2024"));
        QCOMPARE(dc.Texte("LTotDeb"), QStringLiteral("0,00 E"));
        QVERIFY(!dc.Bouton("Command1")->isEnabled());
    }

    void ecritureSurChaqueJournal_data() {
        QTest::addColumn<QString>("journal");
        QTest::addColumn<QString>("ligne");
        // compte, côté, montant
        QTest::addColumn<QStringList>("lignes");
        QTest::newRow("ventes") << "V"
                                << "" << QStringList{"411001 D 120", "707 C 100", "44571 C 20"};
        QTest::newRow("achats") << "A"
                                << "" << QStringList{"607 D 100", "44566 D 20", "401001 C 120"};
        QTest::newRow("T31") << "T"
                             << "31" << QStringList{"512 D 120", "411001 C 120"};
        QTest::newRow("T32") << "T"
                             << "32" << QStringList{"401001 D 80", "530 C 80"};
        QTest::newRow("T33") << "T"
                             << "33" << QStringList{"530 D 60", "707 C 50", "44571 C 10"};
        QTest::newRow("T34") << "T"
                             << "34" << QStringList{"626 D 50", "44566 D 10", "512 C 60"};
        QTest::newRow("T37") << "T"
                             << "37" << QStringList{"512 D 1000", "101 C 1000"};
        QTest::newRow("OD") << "D"
                            << "" << QStringList{"2154 D 300", "512 C 300"};
        QTest::newRow("inventaire") << "I"
                                    << "" << QStringList{"607 D 10", "2154 C 10"};
    }
    void ecritureSurChaqueJournal() {
        QFETCH(QString, journal);
        QFETCH(QString, ligne);
        QFETCH(QStringList, lignes);
        const Depart depart = Photographier();
        Vente(Euros(10), Euros(2));
        dc.Ouvrir(journal, ligne);
        QCOMPARE(dc.Texte("Label1"), QStringLiteral("4"));
        dc.Libelle(QStringLiteral("Pièce \"12\" d'essai"));
        for (const QString& l : lignes)
            dc.Ajouter(l.section(' ', 0, 0));
        QCOMPARE(dc.t2->NombreLignes(), lignes.size());
        for (const QString& l : lignes)
            dc.Montant(l.section(' ', 0, 0), l.section(' ', 1, 1) == "D" ? Debit : Credit,
                       l.section(' ', 2, 2));
        QVERIFY(dc.Bouton("Command1")->isEnabled());
        QCOMPARE(dc.Texte("LTotDeb"), dc.Texte("LTotCre"));
        dc.e->findChild<QCheckBox*>("BCrappel")->setChecked(false);
        QTest::mouseClick(dc.Bouton("Command1"), Qt::LeftButton);

        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 3 + lignes.size());
        for (int i = 0; i < lignes.size(); ++i) {
            const QStringList p = lignes[i].split(' ');
            const table::Ecriture e = LigneLue(4 + i);
            QCOMPARE(e.NumCptEcr.trimmed(), p[0]);
            QCOMPARE(e.DCEcr, p[1]);
            QCOMPARE(e.Journal, journal);
            const bool naturel = (p[1] == "D") == e.ErEcr.startsWith(u'E');
            QCOMPARE(e.MntEcr, naturel ? Euros(p[2].toInt()) : -Euros(p[2].toInt()));
            QCOMPARE(e.LibEcr.trimmed(), QStringLiteral("Pièce \"12\" d'essai"));
            QCOMPARE(e.DatePiece, QStringLiteral("20240315"));
            QCOMPARE(e.Fin, i == lignes.size() - 1);
        }
        QCOMPARE(EcartsDesLivres(depart), QString());
        // L'écran est prêt pour la suivante.
        QCOMPARE(dc.Texte("Label1"), QString::number(4 + lignes.size()));
        QCOMPARE(dc.t2->NombreLignes(), 0);
        QCOMPARE(dc.Champ("Text2")->text(), QString());
        QVERIFY(!dc.Bouton("Command1")->isEnabled());
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisDC t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_saisdc.moc"
