// Contrôle budgétaire d'une année : des écritures chaque mois, un budget par compte de
// charges et de produits saisi par l'écran (douzièmes, pourcentages, montants), puis les
// écrans budget03 et Budget04 à trois dates d'arrêt ; chaque chiffre est recalculé ici à
// part, depuis les lignes d'Ecriture et les prévisions tapées.
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/LivresEssai.h"
#include "support/PiloteModal.h"

#include "budget/Budget04.h"
#include "budget/ControleDetaille.h"
#include "budget/DonneesBudget.h"
#include "budget/SaisieBudget.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <map>

using essai::Cle;
using essai::Euros;

namespace {

QString Affiche(Montant m) {
    return FormaterMontant(m, session().FormatMontant);
}

// Le réalisé d'un compte par mois, tiré des lignes elles-mêmes.
std::map<int, Montant> ReelParMois(const QString& compte) {
    std::map<int, Montant> mois;
    SQLite::Statement q(Base(), "SELECT CAST(substr(DateEcr, 5, 2) AS INTEGER), sum(MntEcr) FROM "
                                "Ecriture WHERE CleCpt = '012024' AND NumCptEcr = ? GROUP BY 1");
    q.bind(1, compte.toStdString());
    while (q.executeStep())
        mois[q.getColumn(0).getInt()] = Montant::depuisDixMilliemes(q.getColumn(1).getInt64());
    return mois;
}

struct Attendu {
    Montant anterieur, reel, prevision;
};

} // namespace

class TestControleBudget : public QObject {
    Q_OBJECT
    support::DossierEssai dossier;
    // Prévisions tapées, par compte et par mois ; réalisé antérieur posé, par mois.
    std::map<QString, std::map<int, Montant>> prevu, anterieur;

    Attendu Cumul(const QString& compte, const QList<int>& moisComptes) {
        Attendu a;
        const auto reel = ReelParMois(compte);
        for (int m : moisComptes) {
            a.anterieur += anterieur[compte][m];
            a.reel += reel.count(m) ? reel.at(m) : Montant();
            a.prevision += prevu[compte][m];
        }
        return a;
    }

    static QStringList Textes(const Attendu& a) {
        return {Affiche(a.anterieur), Affiche(a.reel), Affiche(a.prevision),
                Affiche(a.reel - a.prevision)};
    }

    static QStringList Ligne(ui::Grille* g, int ligne, int premiere) {
        QStringList l;
        for (int c = premiere; c < premiere + 4; ++c)
            l << g->Texte(ligne, c);
        return l;
    }

    // Les trois prévisions, par l'écran de saisie du budget.
    void SaisirBudgets() {
        ecran::Budget02 e;
        e.show();
        QVERIFY(QTest::qWaitForWindowExposed(&e));
        auto* comptes = e.findChild<ui::Grille*>("Tree1");
        auto* mois = e.findChild<ui::Grille*>("Tree2");
        auto* total = e.findChild<QLineEdit*>("Text1");
        const auto choisir = [&](const char* compte) {
            QVERIFY(support::CliquerCellule(comptes, comptes->ChercherTexte(1, compte), 2));
        };
        const auto saisir = [&](const char* nom, const char* texte) {
            QVERIFY(support::CliquerCellule(mois, mois->ChercherTexte(0, nom), 0));
            QVERIFY(support::TaperDansCellule(mois, texte));
        };
        // 607 : douzièmes de 1 200,00.
        choisir("607");
        e.findChild<QRadioButton*>("Option3")->click();
        support::TaperCaracteres(total, "1200");
        QTest::mouseClick(e.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        QTest::mouseClick(e.findChild<QPushButton*>("Command5"), Qt::LeftButton);
        for (int m = 1; m <= 12; ++m)
            prevu["607"][m] = Euros(100);
        // 626 : 600,00 en pourcentages, 25 % en janvier, 75 % en juillet.
        choisir("626");
        e.findChild<QRadioButton*>("Option2")->click();
        total->clear();
        support::TaperCaracteres(total, "600");
        saisir("Janvier", "25");
        saisir("Juillet", "75");
        QTest::mouseClick(e.findChild<QPushButton*>("Command5"), Qt::LeftButton);
        prevu["626"][1] = Euros(150);
        prevu["626"][7] = Euros(450);
        // 707 : des montants, mois par mois.
        choisir("707");
        saisir("Octobre", "310");
        saisir("Janvier", "320");
        saisir("Mars", "330,5");
        QTest::mouseClick(e.findChild<QPushButton*>("Command5"), Qt::LeftButton);
        prevu["707"][10] = Euros(310);
        prevu["707"][1] = Euros(320);
        prevu["707"][3] = Euros(330.5);
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void VerifierBudget03(const QList<int>& moisComptes, const QString& titre, const QString& arret,
                          int mode) {
        ecran::budget03 e;
        e.show();
        if (mode == 2) e.findChild<QRadioButton*>("Option2")->click();
        auto* comptes = e.findChild<ui::Grille*>("Tree1");
        for (const char* compte : {"607", "626", "707"}) {
            const int ligne = comptes->ChercherTexte(1, compte);
            QVERIFY(support::CliquerCellule(comptes, ligne, 2));
            auto* mois = e.findChild<ui::Grille*>("Tree2");
            QCOMPARE(mois->NombreLignes(), 12);
            // Chaque mois, cumul arrêté ou non.
            const auto reel = ReelParMois(compte);
            for (int i = 0; i < 12; ++i) {
                const int m = mois->DonneeLigne(i).toInt();
                const Montant r = reel.count(m) ? reel.at(m) : Montant();
                QCOMPARE(Ligne(mois, i, 1), Textes({anterieur[compte][m], r, prevu[compte][m]}));
            }
            auto* cumul = e.findChild<ui::Grille*>("Tree3");
            QCOMPARE(Ligne(cumul, 0, 1), Textes(Cumul(compte, moisComptes)));
            QCOMPARE(e.findChild<QLabel*>("Label1")->text(), titre);
            QCOMPARE(e.findChild<QLabel*>("Label2")->text(), arret);
        }
    }

    void VerifierBudget04(const QList<int>& moisComptes, int mode) {
        ecran::Budget04 e;
        if (mode == 2) e.findChild<QRadioButton*>("Option2")->click();
        auto* charges = e.findChild<ui::Grille*>("Tree1");
        auto* produits = e.findChild<ui::Grille*>("Tree1B");
        Attendu totalCharges;
        for (const char* compte : {"607", "626"}) {
            const int ligne = charges->ChercherTexte(0, compte);
            QVERIFY(ligne >= 0);
            const Attendu a = Cumul(compte, moisComptes);
            QCOMPARE(Ligne(charges, ligne, 2), Textes(a));
            totalCharges.anterieur += a.anterieur;
            totalCharges.reel += a.reel;
            totalCharges.prevision += a.prevision;
        }
        QCOMPARE(charges->NombreLignes(), 2);
        QCOMPARE(produits->NombreLignes(), 1);
        QCOMPARE(Ligne(produits, 0, 2), Textes(Cumul("707", moisComptes)));
        QCOMPARE(Ligne(e.findChild<ui::Grille*>("Tree2"), 0, 2), Textes(totalCharges));
        QCOMPARE(Ligne(e.findChild<ui::Grille*>("Tree2B"), 0, 2),
                 Textes(Cumul("707", moisComptes)));
        // Les prévisions de toute l'année, quel que soit l'arrêt.
        QCOMPARE(e.findChild<QLabel*>("LCharges")->text(), Affiche(Euros(1800)));
        QCOMPARE(e.findChild<QLabel*>("LProduits")->text(), Affiche(Euros(960.5)));
        QCOMPARE(e.findChild<QLabel*>("LResultat")->text(), Affiche(Euros(960.5 - 1800)));
    }

private slots:
    void initTestCase() {
        essai::NouvelleSession(dossier.Chemin());
        essai::OuvrirLivres(dossier.Chemin());
        session().MoisDebutExercice = CalculMoisDebutExercice("20240101");
        for (int m = 1; m <= 12; ++m) {
            const QString date = QStringLiteral("12/%1/2024").arg(m, 2, 10, QLatin1Char('0'));
            essai::Ecriture(date, "A", {{"607", "D", 90.0 + m}, {"512", "C", 90.0 + m}});
            essai::Ecriture(date, "D", {{"626", "D", 10.0 * m}, {"530", "C", 10.0 * m}});
            essai::Ecriture(date, "V", {{"512", "D", 300.25 + m}, {"707", "C", 300.25 + m}});
        }
        // Le réalisé de l'an dernier, comme le transfert l'aurait posé.
        table::Budget b;
        QVERIFY(LireBudget(Cle, "607", b));
        for (int m = 1; m <= 12; ++m) {
            b.ReelAM[static_cast<std::size_t>(m)] = Euros(80 + m);
            anterieur["607"][m] = Euros(80 + m);
            b.ReelA += Euros(80 + m);
        }
        QVERIFY(MajBudget(Cle, "607", b));
        SaisirBudgets();
    }
    void cleanupTestCase() { FermerBase(); }

    // Mars avec la date de saisie : d'octobre à mars.
    void mars_dateDeSaisie() {
        session().DateSaisieCourante = QStringLiteral("15/03/2024");
        VerifierBudget03({10, 11, 12, 1, 2, 3}, "Cumuls arrêtés au :", "15/03/2024", 1);
        VerifierBudget04({10, 11, 12, 1, 2, 3}, 1);
    }

    // Mars, mois précédent : d'octobre à février.
    void mars_moisPrecedent() {
        session().DateSaisieCourante = QStringLiteral("15/03/2024");
        VerifierBudget03({10, 11, 12, 1, 2}, "Cumuls arrêtés à :", "Fin Février 2024", 2);
        VerifierBudget04({10, 11, 12, 1, 2}, 2);
    }

    // Janvier, mois précédent : décembre de l'année d'avant.
    void janvier_moisPrecedentDecembreDeLAnneeDavant() {
        session().DateSaisieCourante = QStringLiteral("10/01/2024");
        VerifierBudget03({10, 11, 12}, "Cumuls arrêtés à :", "Fin Décembre 2023", 2);
        VerifierBudget04({10, 11, 12}, 2);
    }

    // Au premier mois de la liste, pas de mois précédent à choisir ; arrêté au mois
    // d'avant le début, le cumul prend toute l'année.
    void premierMois_optionIndisponibleEtAnneeEntiere() {
        session().DateSaisieCourante = QStringLiteral("20/10/2024");
        ecran::budget03 detail;
        QVERIFY(!detail.findChild<QRadioButton*>("Option2")->isEnabled());
        ecran::Budget04 global;
        QVERIFY(!global.findChild<QRadioButton*>("Option2")->isEnabled());
        VerifierBudget04({10}, 1);
        table::Budget b;
        QVERIFY(LireBudget(Cle, "607", b));
        const budget::Cumuls c =
            budget::Cumuler(b, 10, budget::MoisArret(QStringLiteral("20/10/2024"), 2));
        QCOMPARE(c.prevision, Euros(1200));
        QCOMPARE(c.reel, b.Reel);
    }

    // Charges ou produits : l'un ou l'autre se montre, sans rien recalculer.
    void chargesProduits_sansRecalcul() {
        session().DateSaisieCourante = QStringLiteral("15/03/2024");
        ecran::Budget04 e;
        QCOMPARE(e.findChild<QLabel*>("Label3")->text(),
                 QStringLiteral("Consultation des Produits"));
        QVERIFY(e.findChild<ui::Grille*>("Tree1")->isHidden());
        QVERIFY(!e.findChild<ui::Grille*>("Tree1B")->isHidden());
        const QString avant = e.findChild<ui::Grille*>("Tree1")->Texte(0, 3);
        essai::Executer("UPDATE Budget SET ReelM10 = ReelM10 + 1000000 WHERE CleCpt = '012024'");
        e.findChild<QRadioButton*>("RCharges")->click();
        QCOMPARE(e.findChild<QLabel*>("Label3")->text(),
                 QStringLiteral("Consultation des Charges"));
        QVERIFY(!e.findChild<ui::Grille*>("Tree1")->isHidden());
        QVERIFY(e.findChild<ui::Grille*>("Tree2B")->isHidden());
        QCOMPARE(e.findChild<ui::Grille*>("Tree1")->Texte(0, 3), avant);
        essai::Executer("UPDATE Budget SET ReelM10 = ReelM10 - 1000000 WHERE CleCpt = '012024'");
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestControleBudget test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_controle_budget.moc"
