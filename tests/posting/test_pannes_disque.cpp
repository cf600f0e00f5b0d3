// Pannes du disque pendant une écriture, un montant du bilan d'ouverture et la copie d'un
// plan entier : chaque accès au disque échoue tour à tour, et chaque redémarrage trouve une
// base intègre, des livres qui se vérifient, l'état d'avant ou celui d'après.
#include "support/BancPannes.h"
#include "support/DisqueFautif.h"
#include "support/DossierEssai.h"
#include "support/ExerciceEssai.h"
#include "support/LivresEssai.h"

#include "chart/DonneesPlan.h"
#include "chart/Ouverture.h"
#include "posting/PasserEcriture.h"
#include "store/Base.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QTemporaryDir>
#include <QtTest>
#include <cstdio>

using namespace support;

class TestPannesDisque : public QObject {
    Q_OBJECT
private slots:
    void init() { InstallerDisqueFautif(); }

    void ecriturePassee() {
        DossierEssai essai;
        QTemporaryDir modele;
        essai::OuvrirLivres(modele.path());
        essai::Vente(essai::Euros(100), essai::Euros(20));
        FermerBase();

        Scenario s;
        s.modele = modele.path();
        s.ouvrir = [](const QString& d) { essai::ReprendreLivres(d); };
        s.preparer = [] {
            essai::ViderSaisie();
            essai::Saisir(QStringLiteral("411001"), QStringLiteral("D"), essai::Euros(240));
            essai::Saisir(QStringLiteral("707"), QStringLiteral("C"), essai::Euros(200));
            essai::Saisir(QStringLiteral("44571"), QStringLiteral("C"), essai::Euros(40));
        };
        s.operation = [] { essai::Passer(); };
        ExigerBilan("Écriture passée", EssayerPannes(s));
    }

    void montantDuBilanDOuverture() {
        DossierEssai essai;
        QTemporaryDir modele;
        essai::OuvrirLivres(modele.path());
        essai::SoldeOuverture(QStringLiteral("512"), essai::Euros(300));
        FermerBase();

        Scenario s;
        s.modele = modele.path();
        s.ouvrir = [](const QString& d) { essai::ReprendreLivres(d); };
        // Un client : son solde, les totaux de l'exercice et le collectif 410 ensemble.
        s.operation = [] {
            EnregistrerMontantOuverture(QStringLiteral("411001"), Montant(), essai::Euros(1250.5),
                                        QStringLiteral("410"));
        };
        ExigerBilan("Montant du bilan d'ouverture", EssayerPannes(s));
    }

    // Hors du moteur, une panne arrive au gestionnaire de l'erreur d'exécution : une boîte
    // en français qui nomme le fichier et la raison, puis une fin au code 1.
    void panneDuDisque_boiteQuiNommeLeFichierEtLaRaison() {
        DossierEssai essai;
        essai::OuvrirLivres(essai.Chemin());
        RemettreDisqueAZero();
        ArmerPanne(Acces::Ecriture, 1, Panne::DisquePlein, true);
        ui::RepondreBoite(ui::Reponse::OK);
        const QString chemin = CheminBase();
        const int code = ui::ExecuterSousGarde([] {
            EnregistrerMontantOuverture(QStringLiteral("512"), Montant(), essai::Euros(10),
                                        QString());
            return 0;
        });
        RemettreDisqueAZero();
        QCOMPARE(code, 1);
        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal& b = ui::JournalBoites().first();
        QCOMPARE(b.titre, QStringLiteral("Erreur d'exécution"));
        QCOMPARE(b.icone, ui::Icone::Critique);
        QVERIFY2(b.texte.startsWith("Maroval n'a pas pu enregistrer ou relire votre "
                                    "comptabilité dans le fichier :\n\n" +
                                    chemin + "\n\nRaison : le disque est plein ("),
                 qPrintable(b.texte));
        QVERIFY2(b.texte.contains("L'opération en cours n'a pas été enregistrée"),
                 qPrintable(b.texte));
        // Les livres sont ceux d'avant.
        essai::ReprendreLivres(essai.Chemin());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE NumCpt='512' AND Sde<>0"), 0);
    }

    void copieDUnPlanEntier() {
        DossierEssai essai;
        QTemporaryDir modele;
        essai::CreerExercice(modele.path(), QStringLiteral("20240101"));
        FermerBase();

        Scenario s;
        s.modele = modele.path();
        s.ouvrir = [](const QString& d) { essai::OuvrirSession(d); };
        s.operation = [] {
            const QList<plan::PlanStandard> plans = plan::LirePlansStandard();
            plan::CopierComptes(essai::Cle, plan::ComptesDuPlanStandard(plans.first().numero), {});
        };
        ExigerBilan("Copie d'un plan entier", EssayerPannes(s));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPannesDisque test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_pannes_disque.moc"
