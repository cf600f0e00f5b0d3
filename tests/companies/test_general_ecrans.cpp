// Chaque entrée de l'écran principal, barre d'outils, menus déroulants et menus, ouvre son
// vrai écran dans une société d'une année générée : l'écran attendu paraît (il est aussitôt
// refermé), sans boîte d'erreur en chemin ; l'aide s'ouvre par son entrée et par F1.
#include "Essai.h"

#include "Generateur.h"
#include "companies/General.h"
#include "ui/Aide.h"
#include "ui/Application.h"
#include "ui/Fin.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

namespace {

// Ce qui paraît de modal pendant une entrée : l'objectName des écrans, le texte des boîtes.
// Chaque écran est refermé par « Retour » ; une boîte reçoit « Oui » (aller jusqu'à l'écran)
// ou, à défaut, son bouton par défaut.
class Fermeur : public QObject {
public:
    QStringList vus;
    Fermeur() {
        connect(&minuterie, &QTimer::timeout, this, [this] { Fermer(); });
        minuterie.start(20);
    }

private:
    void Fermer() {
        QWidget* modale = QApplication::activeModalWidget();
        if (!modale || !modale->isVisible()) return;
        if (auto* boite = qobject_cast<QMessageBox*>(modale)) {
            vus << QStringLiteral("Boîte : ") + boite->text();
            for (QAbstractButton* b : boite->buttons())
                if (b->text().remove(u'&') == QLatin1String("Oui")) {
                    b->click();
                    return;
                }
            if (boite->defaultButton())
                boite->defaultButton()->click();
            else
                boite->reject();
            return;
        }
        if (auto* dialogue = qobject_cast<QDialog*>(modale)) {
            vus << modale->objectName();
            dialogue->reject();
        }
    }
    QTimer minuterie;
};

} // namespace

class TestGeneralEcrans : public QObject {
    Q_OBJECT
    support::DossierEssai dossier;
    ecran::General* general = nullptr;

    // Ce qui a paru pendant l'entrée de cette clé.
    QStringList Entree(const QString& cle) {
        Fermeur fermeur;
        QAction* action = general->Action(cle);
        if (!action) return {QStringLiteral("entrée absente : ") + cle};
        action->trigger();
        QCoreApplication::processEvents();
        return fermeur.vus;
    }

private slots:
    void initTestCase() {
        generateur::GenererPuisOuvrir(dossier.Chemin(), 1500, 12, 5);
        session().DateSaisieCourante = QStringLiteral("31/12/2024");
        session().NomSocCourante = QStringLiteral("Boulangerie Martin");
        ecran::FixerReleve({});
        ui::ObserverFin(true);
        ecran::MontrerGeneral();
        general = ecran::General::Instance();
        QVERIFY(general);
    }
    void cleanupTestCase() {
        ecran::FermerGeneral();
        FermerBase();
    }

    void chaqueEntree_ouvreSonVraiEcran_data() {
        QTest::addColumn<QString>("cle");
        QTest::addColumn<QString>("ecran");
        const QList<std::pair<const char*, const char*>> entrees = {
            // Barre d'outils.
            {"Plan", "Plan2"},
            {"Saisie", "Choisais"},
            {"Consult", "Consult"},
            {"Edition", "Editions"},
            {"Rappr", "Rappr"},
            {"Cloture", "Cloture"},
            {"Sauver", "Backup"},
            {"Analyt", "Analy0"},
            {"Budget", "Budget00"},
            {"Tresorerie", "Tresor00"},
            {"Apropos", "APropos"},
            // Menus déroulants de la barre.
            {"SaisDC", "SaisDC"},
            {"Saislog", "Saislog"},
            {"Annul", "Annul"},
            {"ModifLibel", "ModifLib"},
            {"Journaux", "Journal"},
            {"Balances", "Balance"},
            {"Resultat", "Resultat"},
            {"Bilan", "Consult"},
            {"Consultcpt", "ConsCpt"},
            {"Graphiques", "BilGraph"},
            {"Budget01", "Budget00"},
            {"Budget02", "Budget00"},
            {"Budget03", "budget03"},
            {"Budget04", "Budget04"},
            {"Choix1", "Tresor01"},
            {"Choix2", "Tresor02"},
            {"Choix3", "Tresor03"},
            {"Choix4", "Tresor04"},
            {"Choix5", "Tresor05"},
            // Menus.
            {"SocGerer", "Societe"},
            {"SMCreer", "Plan2"},
            {"SMSauve", "Backup"},
            {"SMAncienne", "Sauve"},
            {"SMRestaure", "Restaure"},
            {"SMBalFisc", "Fiscalite"},
            {"SMFEC", "ExportFEC"},
            {"SMSymbMon", "Options"},
            {"SMPropos", "APropos"},
        };
        for (const auto& [cle, ecran] : entrees)
            QTest::newRow(cle) << QString::fromLatin1(cle) << QString::fromLatin1(ecran);
    }
    void chaqueEntree_ouvreSonVraiEcran() {
        QFETCH(QString, cle);
        QFETCH(QString, ecran);
        const QStringList vus = Entree(cle);
        QVERIFY2(vus.contains(ecran), qPrintable(cle + " : " + vus.join(" | ")));
        // Aucune boîte d'erreur en chemin ; les seules boîtes sont les questions qui mènent
        // à l'écran (conseil de la balance fiscale, rappel de l'ancienne restauration).
        for (const QString& v : vus)
            if (v.startsWith(QStringLiteral("Boîte : ")))
                QVERIFY2(cle == QLatin1String("SMBalFisc") || cle == QLatin1String("SMRestaure"),
                         qPrintable(cle + " : " + v));
        QVERIFY(!ui::FinDemandee());
    }

    void aide_parSonEntreeEtParF1() {
        QVERIFY(Entree("SMIndex").isEmpty());
        QVERIFY(ui::FenetreAide() && ui::FenetreAide()->isVisible());
        ui::FenetreAide()->hide();
        Entree("Aide");
        QVERIFY(ui::FenetreAide()->isVisible());
        ui::FenetreAide()->hide();
        general->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(general));
        QTest::keyClick(general, Qt::Key_F1);
        QVERIFY(ui::FenetreAide()->isVisible());
        ui::FenetreAide()->hide();
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestGeneralEcrans test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_general_ecrans.moc"
