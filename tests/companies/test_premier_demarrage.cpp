// Le chemin d'un nouvel utilisateur sur une machine neuve : démarrage sans société,
// création de la première, choix de l'exercice, écran principal rempli ; puis le
// démarrage suivant qui reprend le dernier choix, et l'archive ouverte depuis le bureau.

#include "Essai.h"

#include "base/Reglages.h"
#include "companies/Demarrage.h"
#include "companies/General.h"
#include "ui/Application.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QtTest>

using namespace support;

namespace {
const QString kMemeDate = QStringLiteral(
    "Vous n'avez pas modifié la date de saisie. Etes-vous sûr(e) de vouloir continuer ?");
}

class TestPremierDemarrage : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;

    void Arreter() {
        ecran::FermerGeneral();
        FermerBase();
        LibererDossierDonnees();
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        session() = Session();
        EcrireReglage("intl", "sDecimal", ",");
        ecransDemarrage() = EcransParDefaut();
        ecran::FixerReleve({});
        essai::EcransOuverts().clear();
        ui::FixerHorloge(QDateTime(QDate(2024, 3, 12), QTime(8, 0)));
    }
    void cleanup() {
        Arreter();
        ecran::FixerReleve({});
        dossier.reset();
    }

    void dossierVide_creationChoixEtEcranPrincipal() {
        QStringList societes, exercices;
        bool creationSansSociete = false;
        PiloteModal pilote;
        pilote
            .Attendre("CreSociete",
                      [&](QWidget* f) {
                          creationSansSociete = session().AucuneSociete &&
                                                f->windowTitle() == "Créer une comptabilité";
                          TaperTexte(f, "Text1", "Boulangerie Martin");
                          TaperTexte(f, "Text4", "Lyon");
                          CliquerBouton(f, "Command1");
                      })
            .Attendre("Societe",
                      [&](QWidget* f) {
                          societes = essai::Lignes(f, "List1");
                          exercices = essai::Lignes(f, "List2");
                          ChoisirLigneListe(f, "List2", 0);
                          CliquerBouton(f, "Command4");
                      })
            .AttendreBoite(kMemeDate, "Oui");
        pilote.Demarrer();
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QVERIFY(creationSansSociete);
        QCOMPARE(societes, QStringList({"Boulangerie Martin"}));
        QCOMPARE(exercices, QStringList({"Exercice 2024 (Ouvert)"}));

        ecran::General* g = ecran::General::Instance();
        QVERIFY(g && g->isVisible());
        QCOMPARE(g->Libelle("LBSociete"), QStringLiteral("Boulangerie Martin"));
        QCOMPARE(g->Libelle("LBExercice"), QStringLiteral("2024"));
        QCOMPARE(g->Libelle("LBDateExo"), QStringLiteral("01/01/2024 au 31/12/2024"));
        QCOMPARE(g->Libelle("LBDateSaisie"), QStringLiteral("01/01/2024"));
        QCOMPARE(session().NomSocCourante, QStringLiteral("Boulangerie Martin"));
        QCOMPARE(int(session().ExerciceCourant), 2024);
        QVERIFY(!session().AucuneSociete);
        QCOMPARE(LireReglage("Societe", "Exercice"), QStringLiteral("2024"));
        QCOMPARE(ui::JournalBoites().size(), 1);
    }

    void dossierVide_retourSansCreer_nonArreteMaroval() {
        PiloteModal pilote;
        pilote.Attendre("CreSociete", Cliquer("Command2"))
            .AttendreBoite("Vous ne pourrez pas utiliser MAROVAL si vous ne créez pas au moins "
                           "UNE société.\nCliquez sur Oui pour créer votre première société.",
                           "Non");
        pilote.Demarrer();
        QVERIFY(!Demarrage({"maroval"}));
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QVERIFY(ui::FinDemandee());
    }

    void demarrageSuivant_preselectionneLeDernierChoix() {
        OuvrirBase(dossier->Chemin());
        const int n = essai::Societe("Garage Dupont");
        essai::AjouterAnnee(n, 2023, "20231220");
        essai::AjouterAnnee(n, 2024, "20240305");
        FermerBase();
        EcrireReglage("Options", "Demarrage", "1");
        EcrireReglage("Societe", "Societe", QString::number(n));
        EcrireReglage("Societe", "Exercice", "2024");
        EcrireReglage("Societe", "DateTrav", "05/03/2024");
        PiloteModal pilote;
        pilote.AttendreBoite(kMemeDate, "Oui");
        pilote.Demarrer();
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(ecran::General::Instance()->Libelle("LBSociete"), QStringLiteral("Garage Dupont"));
        QCOMPARE(ecran::General::Instance()->Libelle("LBDateSaisie"), QStringLiteral("05/03/2024"));
    }

    void archiveOuverteDepuisLeBureau_prevenirPuisSauvegardeApresLeChoix() {
        OuvrirBase(dossier->Chemin());
        const int n = essai::Societe("Garage Dupont");
        essai::AjouterAnnee(n, 2024, "20240305");
        FermerBase();
        essai::ReleverOuvertures({"Backup"});
        PiloteModal pilote;
        pilote
            .AttendreBoite("Vous devez sélectionnez une société et un exercice avant de pouvoir "
                           "restaurer cette sauvegarde.",
                           "OK")
            .Attendre("Societe", Suite({ChoisirLigne("List2", 0), Cliquer("Command4")}))
            .AttendreBoite(kMemeDate, "Oui");
        pilote.Demarrer();
        QVERIFY(Demarrage({"maroval", "/home/lea/Bureau/maroval05-03-2024-18h00.sav"}));
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(essai::EcransOuverts(), QStringList({"Backup"}));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPremierDemarrage t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_premier_demarrage.moc"
