// Une année entière jusqu'à l'exercice suivant, par les écrans : plan de l'année suivante,
// transfert provisoire, écriture du résultat par la saisie logique (menu 57) le dernier
// jour, transfert définitif et clôture, puis l'exercice suivant choisi dans Societe : son
// bilan est celui de la fin d'année, ses livres se vérifient, ses totaux d'ouverture
// recalculés ici à part s'accordent au dix-millième.
#include "EssaiCloture.h"
#include "support/DossierEssai.h"
#include "support/ExerciceEssai.h"
#include "support/GardeBoites.h"
#include "support/GestesSaisie.h"
#include "support/PiloteModal.h"

#include "base/Reglages.h"
#include "chart/DonneesPlan.h"
#include "chart/GestionPlan.h"
#include "chart/Ouverture.h"
#include "companies/General.h"
#include "companies/Societe.h"
#include "consultation/BilGraph.h"
#include "consultation/Bilan.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Horloge.h"
#include "yearend/Cloture.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using namespace cloture_essai;
using essai::Cle;
using essai::Euros;
using ui::Reponse;

namespace {

QString Texte(QWidget* racine, const char* nom) {
    auto* l = racine->findChild<QLabel*>(QString::fromLatin1(nom));
    return l ? l->text() : QStringLiteral("<absent>");
}

} // namespace

class TestClotureAnnee : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        ui::FixerHorloge(QDateTime(QDate(2024, 12, 31), QTime(18, 0)));
    }
    void cleanup() {
        ecran::FermerGeneral();
        FermerBase();
        dossier.reset();
    }

    void anneeEntiereJusquALExerciceSuivant() {
        essai::OuvrirExercice(*dossier);
        essai::GardeBoites garde;
        const QList<plan::PlanStandard> plans = plan::LirePlansStandard();
        plan::CopierComptes(Cle, plan::ComptesDuPlanStandard(plans.first().numero), {});
        AssurerComptesFixes(Cle);
        session().DateSaisieCourante = QStringLiteral("02/01/2024");
        EnregistrerMontantOuverture("512", Montant(), Euros(5000), QString());
        EnregistrerMontantOuverture("101", Montant(), Euros(5000), QString());
        Constante(Cle, [](table::Constante& k) { k.OuvertureClos = true; });

        // Douze mois : ventes, achats, règlements.
        for (int m = 1; m <= 12; ++m) {
            const QString mois = QStringLiteral("%1/2024").arg(m, 2, 10, QLatin1Char('0'));
            const double ht = 1000 + 37.5 * m, achat = 400 + 11.25 * m;
            essai::Ecriture("10/" + mois, "V",
                            {{"7071", "C", ht}, {"445711", "C", ht * 0.2}, {"411", "D", ht * 1.2}});
            essai::Ecriture(
                "12/" + mois, "A",
                {{"607", "D", achat}, {"44566", "D", achat * 0.2}, {"401", "C", achat * 1.2}});
            essai::Ecriture("20/" + mois, "T", {{"512", "D", ht * 1.2}, {"411", "C", ht * 1.2}});
            essai::Ecriture("25/" + mois, "T", {{"401", "D", achat}, {"512", "C", achat}});
        }
        QVERIFY(Verification());
        session().DateSaisieCourante = QStringLiteral("31/12/2024");
        Constante(Cle, [](table::Constante& k) { k.DateSaisie = "20241231"; });
        const Montant resultat = Lue(Cle).Resultat;
        QVERIFY(resultat > Montant());

        // Plan de l'année suivante et transfert provisoire offert.
        {
            ui::RepondreBoite(Reponse::OK);
            ui::RepondreBoite(Reponse::Oui);
            ui::RepondreBoite(Reponse::OK);
            ecran::Cloture ecran;
            ecran.show();
            QTest::mouseClick(ecran.findChild<QPushButton*>("Command1"), Qt::LeftButton);
            QVERIFY(!ecran.isVisible());
            QVERIFY(essai::TextesBoites().last().startsWith(
                "Vous venez de faire un transfert provisoire des soldes de\n"));
        }
        QCOMPARE(Lue(Suivante).SDE1 - Lue(Suivante).SDR1, resultat);

        // L'écriture du résultat, le dernier jour, par la saisie logique.
        const QString montant =
            QString::number(resultat.dixMilliemes() / 10000.0, 'f', 2).replace('.', ',');
        QCOMPARE(essai::SaisirOperation(5, 7, {{1, "699", montant}, {2, "120", montant}},
                                        QStringLiteral("Resultat 2024")),
                 QString());
        QVERIFY(Lue(Cle).Resultat.estNul());
        QVERIFY(Verification());
        // Le bilan graphique le dit : plus de résultat debout, il est dans la situation nette.
        {
            ecran::BilGraph graphique;
            graphique.show();
            QCOMPARE(Texte(&graphique, "Label31"),
                     QStringLiteral("Votre résultat a été affecté à la situation nette"));
            QVERIFY(graphique.findChild<QWidget*>("GRN")->isHidden());
            QVERIFY(graphique.findChild<QWidget*>("GRP")->isHidden());
            QVERIFY(Texte(&graphique, "Label29").isEmpty());
        }
        QString gauche, droite;
        {
            ecran::Bilan bilan;
            gauche = Texte(&bilan, "Label3");
            droite = Texte(&bilan, "Label4");
        }
        QCOMPARE(gauche, droite);

        // Transfert définitif et clôture.
        ui::ViderJournalBoites();
        {
            ui::RepondreBoite(Reponse::Oui);
            ui::RepondreBoite(Reponse::OK);
            ui::RepondreBoite(Reponse::OK);
            ecran::Cloture ecran;
            ecran.show();
            QTest::mouseClick(ecran.findChild<QPushButton*>("Command2"), Qt::LeftButton);
            QVERIFY(!ecran.isVisible());
        }
        QCOMPARE(essai::TextesBoites().value(1),
                 QStringLiteral("Votre exercice en cours est clos."));
        QVERIFY(Lue(Cle).ExerciceClos);
        ComparerTotaux();
        QCOMPARE(Lue(Suivante).SDE1, Lue(Suivante).SDR1);

        // L'exercice suivant choisi comme un autre.
        ecran::MontrerGeneral();
        {
            ecran::Societe choix(ecran::General::Instance());
            choix.show();
            QCoreApplication::processEvents();
            QVERIFY(support::ChoisirLigneListe(&choix, "List1", 0));
            auto* exercices = choix.findChild<QListWidget*>("List2");
            int ligne = -1;
            for (int i = 0; i < exercices->count(); ++i)
                if (exercices->item(i)->text().contains("2025")) ligne = i;
            QVERIFY(ligne >= 0);
            QCOMPARE(exercices->item(ligne)->text(), QStringLiteral("Exercice 2025 (Ouvert)"));
            QVERIFY(support::ChoisirLigneListe(&choix, "List2", ligne));
            ui::RepondreBoite(Reponse::Oui);
            QVERIFY(support::CliquerBouton(&choix, "Command4"));
        }
        QCOMPARE(int(session().ExerciceCourant), 2025);
        QCOMPARE(session().DateSaisieCourante, QStringLiteral("01/01/2025"));
        QVERIFY(Verification());
        {
            ecran::Bilan bilan;
            QCOMPARE(Texte(&bilan, "Label3"), gauche);
            QCOMPARE(Texte(&bilan, "Label4"), droite);
        }
        QCOMPARE(garde.inattendues, QStringList());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestClotureAnnee test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_cloture_annee.moc"
