// Prévisions des encaissements et des règlements (Tresor03, Tresor04) et factures non
// réglées (Tresor05) : mois d'échéance depuis le mois de début, factures sans échéance,
// règlements non lettrés, reste du solde de début, comptes soldés laissés de côté,
// contrôle par le collectif, filtres et totaux de la liste.
#include "EssaiTresor.h"
#include "support/Captures.h"
#include "support/DossierEssai.h"

#include "treasury/Previsions.h"
#include "treasury/Tresor05.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QRadioButton>
#include <QtTest>

using namespace tresor_essai;

namespace {

QString Texte(QWidget* e, const char* nom) {
    return e->findChild<QLabel*>(nom)->text();
}

// Le montant de la ligne d'un mois.
QString Mois(QWidget* e, const QString& mois) {
    ui::Grille* t = e->findChild<ui::Grille*>("Tree1");
    const int ligne = t->ChercherTexte(0, mois);
    return ligne < 0 ? QStringLiteral("<absent>") : t->Texte(ligne, 1);
}

} // namespace

class TestPrevisions : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        Livres(dossier->Chemin());
        session().MoisDebutExercice = CalculMoisDebutExercice("20240101");
        // Client 411001 : solde de début 200, dont 50 lettrés (2) ; factures d'avril et de
        // mai, une sans échéance, un règlement non lettré, une paire lettrée.
        FixerCompte("411001", 200, 585);
        Ligne("411001", 1, -50, 2);
        Ligne("411001", 2, 300, 0, "20240415");
        Ligne("411001", 3, 100, 0, "20240520");
        Ligne("411001", 4, 75, 0);
        Ligne("411001", 5, -40, 0);
        Ligne("411001", 6, 999, 1, "20240415");
        Ligne("411001", 7, -999, 1);
        // Client 411002 soldé, avec des lignes ouvertes : il ne compte pas.
        FixerCompte("411002", 0, 0);
        Ligne("411002", 8, 500, 0, "20240415");
        Ligne("411002", 9, -500, 0);
        // Une échéance de l'année suivante tombe sur le même mois.
        FixerCompte("411003", 0, 60);
        Ligne("411003", 10, 60, 0, "20250410");
        FixerCompte("410", 0, 645);
        // Fournisseur.
        FixerCompte("401001", 0, 30);
        Ligne("401001", 11, 30, 0, "20240305");
        FixerCompte("400", 0, 30);
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void encaissements_moisEtControle() {
        ecran::Tresor03 e;
        QCOMPARE(e.objectName(), QStringLiteral("Tresor03"));
        QCOMPARE(e.windowTitle(),
                 QStringLiteral("Prévisions des encaissements dus par les clients"));
        ui::Grille* t = e.findChild<ui::Grille*>("Tree1");
        // Exercice commencé le 1er janvier : la première ligne est octobre, douze mois en tout.
        QCOMPARE(t->NombreLignes(), 12);
        QCOMPARE(t->Texte(0, 0), QStringLiteral("Octobre"));
        QCOMPARE(t->Texte(11, 0), QStringLiteral("Septembre"));
        QCOMPARE(Mois(&e, "Avril"), essai::AfficheEuros(360)); // 300 + 60 de l'année suivante
        QCOMPARE(Mois(&e, "Mai"), essai::AfficheEuros(100));
        QCOMPARE(Mois(&e, "Janvier"), essai::AfficheEuros(0));
        QCOMPARE(Texte(&e, "LTotPrev"), essai::AfficheEuros(460));
        // La facture sans échéance : dans son total, dans aucun mois.
        QCOMPARE(Texte(&e, "LTotFac"), essai::AfficheEuros(75));
        // Reste du solde de début : 200 - 50 lettrés contre lui.
        QCOMPARE(Texte(&e, "LCumSde"), essai::AfficheEuros(150));
        QCOMPARE(Texte(&e, "LCumReg"), essai::AfficheEuros(-40));
        QCOMPARE(Texte(&e, "LSolCalc"), essai::AfficheEuros(460 + 150 - 40 + 75));
        QCOMPARE(Texte(&e, "LSoldColl"), essai::AfficheEuros(645));
        QCOMPARE(Texte(&e, "LSolCalc"), Texte(&e, "LSoldColl"));
    }

    void reglements_fournisseurs() {
        ecran::Tresor04 e;
        QCOMPARE(e.windowTitle(), QStringLiteral("Prévisions des règlements dus aux fournisseurs"));
        QCOMPARE(Mois(&e, "Mars"), essai::AfficheEuros(30));
        QCOMPARE(Texte(&e, "LTotPrev"), essai::AfficheEuros(30));
        QCOMPARE(Texte(&e, "LSoldColl"), essai::AfficheEuros(30));
    }

    // Un exercice qui commence en juillet : les lignes partent de juillet.
    void moisDeDebut_suitLExercice() {
        session().MoisDebutExercice = 7;
        ecran::Tresor03 e;
        ui::Grille* t = e.findChild<ui::Grille*>("Tree1");
        QCOMPARE(t->Texte(0, 0), QStringLiteral("Juillet"));
        QCOMPARE(t->Texte(6, 0), QStringLiteral("Janvier"));
        QCOMPARE(t->Texte(11, 0), QStringLiteral("Juin"));
    }

    void facturesNonReglees_filtresEtTotaux() {
        ecran::Tresor05 e;
        QCOMPARE(e.windowTitle(),
                 QStringLiteral("Liste des factures non-réglées de l'exercice en cours"));
        ui::Grille* t = e.findChild<ui::Grille*>("Tree1");
        // Par échéance, les lignes sans date à la fin ; ni règlements ni lignes lettrées.
        QStringList ecritures;
        for (int i = 0; i < t->NombreLignes(); ++i)
            ecritures << t->Texte(i, 2);
        QCOMPARE(ecritures, (QStringList{"2", "8", "3", "10", "4"}));
        QCOMPARE(t->Texte(0, 4), QStringLiteral("15/04/2024"));
        QCOMPARE(t->Texte(4, 4), QString());
        QCOMPARE(t->Texte(0, 1), QStringLiteral("Client Durand"));
        QCOMPARE(Texte(&e, "LTotFac"), essai::AfficheEuros(300 + 500 + 100 + 60 + 75));
        QCOMPARE(Texte(&e, "LTotReg"),
                 "ATTENTION ! Du total il faut soustraire le cumul des réglements qui n'ont pas "
                 "encore été lettrés soit : " +
                     essai::AfficheEuros(-540));
        QCOMPARE(Texte(&e, "LCumSde"), essai::AfficheEuros(150));
        QVERIFY(!e.findChild<QLabel*>("LibelSde")->isHidden());

        e.findChild<QRadioButton*>("BRFactSansEch")->click();
        QCOMPARE(t->NombreLignes(), 1);
        QCOMPARE(Texte(&e, "LTotFac"), QString());
        QCOMPARE(Texte(&e, "LTotReg"), QString());
        e.findChild<QRadioButton*>("BRFactAvecEch")->click();
        QCOMPARE(t->NombreLignes(), 4);
        QCOMPARE(Texte(&e, "LTotFac"), QString());

        // Les fournisseurs : pas de reste de solde de début, son libellé caché.
        e.findChild<QRadioButton*>("BRFournisseurs")->click();
        QCOMPARE(e.MenuTiers, 160);
        QCOMPARE(e.FiltreEcheance, 0);
        QVERIFY(e.findChild<QRadioButton*>("BRTtesFact")->isChecked());
        QCOMPARE(t->NombreLignes(), 1);
        QCOMPARE(Texte(&e, "LTotFac"), essai::AfficheEuros(30));
        QCOMPARE(Texte(&e, "LTotReg"), QString());
        QVERIFY(e.findChild<QLabel*>("LibelSde")->isHidden());
        QVERIFY(e.findChild<QLabel*>("LCumSde")->isHidden());
    }

    void capture_previsions() {
        ecran::Tresor03 e;
        e.show();
        QVERIFY(QTest::qWaitForWindowExposed(&e));
        const QImage image = e.grab().toImage();
        QVERIFY(support::ImageDessinee(image));
        QVERIFY(image.save(QDir(support::DossierCaptures()).filePath("tresor03.png")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPrevisions test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_previsions.moc"
