// Porte des consultations : ses boutons ouvrent chacun leur écran ; le bilan est refusé
// tant que l'ouverture n'est pas équilibrée, avec deux messages selon qu'elle est close.

#include "EssaiConsultation.h"

#include "consultation/Consult.h"
#include "ui/Application.h"

#include <QPushButton>

using namespace essai;

class TestConsult : public QObject {
    Q_OBJECT
    BancConsultation banc;

    // Clique le bouton et attend l'écran nommé, qu'il referme par son bouton de retour.
    static bool Ouvre(QWidget* e, const char* bouton, const char* ecran, const char* retour) {
        support::PiloteModal pilote;
        pilote.Attendre(QString::fromLatin1(ecran), support::Cliquer(QString::fromLatin1(retour)));
        pilote.Demarrer();
        support::CliquerBouton(e, QString::fromLatin1(bouton));
        const bool ok = pilote.AttendreFin();
        if (!ok) qWarning("%s", qPrintable(pilote.Echec()));
        return ok;
    }

private slots:
    void initTestCase() { banc.Preparer(&LivresBoutique); }
    void cleanupTestCase() { banc.Liberer(); }
    void init() { banc.Debut(); }
    void cleanup() {
        const QStringList inattendues = banc.Fin();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(" | ")));
    }

    void boutons_libelles() {
        ecran::Consult e;
        QCOMPARE(e.objectName(), QStringLiteral("Consult"));
        QCOMPARE(e.windowTitle(), QStringLiteral("Consultations"));
        const QList<QPair<const char*, const char*>> boutons = {
            {"Command1", "&Journaux"},  {"Command2", "&Balances"},
            {"Command3", "&Quitter"},   {"Command4", "Compte de &Résultat"},
            {"Command5", "B&ilan"},     {"Command6", "&Consultation d'un compte"},
            {"Command7", "&Graphiques"}};
        for (const auto& [nom, texte] : boutons)
            QCOMPARE(support::TrouverBouton(&e, QString::fromLatin1(nom))->text(), T(texte));
    }

    void chaqueBouton_ouvreSonEcran() {
        auto e = MontrerEcran<ecran::Consult>();
        QVERIFY(Ouvre(e.get(), "Command1", "Journal", "Command1"));
        QVERIFY(Ouvre(e.get(), "Command2", "Balance", "Command1"));
        QVERIFY(Ouvre(e.get(), "Command4", "Resultat", "Command2"));
        QVERIFY(Ouvre(e.get(), "Command5", "Bilan", "Command2"));
        QVERIFY(Ouvre(e.get(), "Command6", "ConsCpt", "Command2"));
        QVERIFY(Ouvre(e.get(), "Command7", "BilGraph", "Command1"));
        QVERIFY(TextesBoites().isEmpty());
    }

    void bilan_refuseOuvertureNonEquilibree() {
        Base().exec("UPDATE Constante SET SDR1=9000000, OuvertureClos=0");
        auto e = MontrerEcran<ecran::Consult>();
        ui::RepondreBoite(ui::Reponse::OK);
        support::CliquerBouton(e.get(), "Command5");
        QCOMPARE(TextesBoites(), QStringList({T("Votre bilan d'ouverture n'est pas équilibré.\n\n"
                                                "Vous ne pouvez pas afficher le bilan.")}));
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Information);
    }

    void bilan_refuseTransfertNonFait() {
        Base().exec("UPDATE Constante SET SDR1=9000000, OuvertureClos=1");
        auto e = MontrerEcran<ecran::Consult>();
        ui::RepondreBoite(ui::Reponse::OK);
        support::CliquerBouton(e.get(), "Command5");
        QCOMPARE(TextesBoites(),
                 QStringList({T("Vous ne pouvez pas consulter le bilan car vous n'avez pas "
                                "encore effectué\nle transfert définitif des soldes de "
                                "l'exercice précédent sur l'exercice en cours.\n\nDans le choix "
                                "Plan, vous pouvez consulter le bilan d'ouverture dont le "
                                "déséquilibre\nest égal au résultat provisoire de l'exercice "
                                "précédent.")}));
    }

    void bilan_quitterRevientALEcranPrincipal() {
        ecran::Consult e;
        e.FixerDebutChaine(true);
        support::PiloteModal pilote;
        pilote.Attendre("Consult", support::Cliquer("Command5"))
            .Attendre("Bilan", support::Cliquer("Command4"));
        pilote.Demarrer();
        e.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(e.Quitte());
        QVERIFY(ui::PileModale::Ecrans().isEmpty());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestConsult t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_consult.moc"
