// Bilan graphique : refus écrits dans l'écran, découvert rangé dans les dettes, dettes
// négatives remises de l'autre côté, perte à gauche et bénéfice à droite, piles de 2500
// unités depuis 660, message du résultat affecté, compte de résultat graphique, aide.

#include "EssaiConsultation.h"

#include "consultation/BilGraph.h"
#include "ui/Aide.h"
#include "ui/Application.h"

#include <QDialog>
#include <QProgressBar>
#include <QRadioButton>
#include <QTextBrowser>

using namespace essai;

namespace {

// Totaux de l'exercice en euros entiers, écrits tels quels dans Constante.
void Fixer(const QString& champs) {
    Base().exec(("UPDATE Constante SET " + champs).toStdString());
}

QProgressBar* Jauge(QWidget* e, const char* nom) {
    return e->findChild<QProgressBar*>(QString::fromLatin1(nom));
}
double Hauteur(QWidget* e, const char* nom) {
    return Jauge(e, nom)->property("Hauteur").toDouble();
}
double Haut(QWidget* e, const char* nom) {
    return Jauge(e, nom)->property("Haut").toDouble();
}
// Somme des hauteurs des jauges visibles d'une pile, qui doivent se suivre depuis 660.
double Pile(QWidget* e, const QList<const char*>& noms) {
    double haut = 660, total = 0;
    for (const char* nom : noms) {
        if (Jauge(e, nom)->isHidden()) continue;
        if (qAbs(Haut(e, nom) - haut) > 1e-6) return -1;
        haut += Hauteur(e, nom);
        total += Hauteur(e, nom);
    }
    return total;
}
const QList<const char*> Gauche = {"GBIENS", "GDAR", "GMD", "GRN"};
const QList<const char*> Droite = {"GSN", "GDAP", "GRP"};

// Bilan équilibré en euros : biens, dettes à recevoir, monnaie ; situation nette, dettes à
// payer ; résultat (positif : bénéfice).
void Bilan(int biens, int dar, int md, int sn, int dap, int resultat) {
    const auto m = [](int euros) { return QString::number(qint64(euros) * 10000); };
    Fixer("E1=" + m(biens + dar + md) + ", R1=" + m(sn + dap) +
          ", SDE1=0, SDR1=0, BIENS=" + m(biens) + ", DAR=" + m(dar) + ", MD=" + m(md) +
          ", SN=" + m(sn) + ", DAP=" + m(dap) + ", Resultat=" + m(resultat));
}

} // namespace

class TestBilGraph : public QObject {
    Q_OBJECT
    BancConsultation banc;

private slots:
    void initTestCase() { banc.Preparer(&LivresBoutique); }
    void cleanupTestCase() { banc.Liberer(); }
    void init() { banc.Debut(); }
    void cleanup() {
        if (QDialog* aide = ui::FenetreAide()) aide->close();
        const QStringList inattendues = banc.Fin();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(" | ")));
    }

    void ouverture_controles() {
        auto e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(e->objectName(), QStringLiteral("BilGraph"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Bilan Graphique"));
        QCOMPARE(e->findChild<QRadioButton*>("Option1")->text(), QStringLiteral("&Bilan"));
        QCOMPARE(e->findChild<QRadioButton*>("Option2")->text(), T("&Compte de Résultat"));
        QCOMPARE(support::TrouverBouton(e.get(), "Command2")->text(),
                 T("&Initiation originale à la comptabilité"));
        QCOMPARE(support::TrouverBouton(e.get(), "Command1")->text(), T("&Quitter"));
        QCOMPARE(e->findChild<QGroupBox*>("Frame1")->title(), QStringLiteral("Votre Bilan"));
        QCOMPARE(e->findChild<QGroupBox*>("Frame3")->title(), T("Votre Compte de Résultat"));
    }

    void refus_bilanPasCree() {
        Fixer("E1=0, R1=0");
        auto e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(Texte(e.get(), "Label29"), T("Le bilan graphique ne peut être affiché."));
        QCOMPARE(Texte(e.get(), "Label30"), T("Raison : Votre bilan n'est pas encore créé."));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void refus_ouvertureNonEquilibree() {
        Fixer("SDE1=10000000, SDR1=9000000");
        auto e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(Texte(e.get(), "Label29"), T("Le bilan graphique ne peut être affiché."));
        QCOMPARE(Texte(e.get(), "Label30"),
                 T("Raison : Le bilan d'ouverture n'est pas équilibré."));
    }

    void refus_situationNetteNegative() {
        Bilan(100, 0, 0, -100, 200, 0);
        auto e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(Texte(e.get(), "Label30"),
                 T("Raison : Votre Situation Nette est négative (-100,00 E)."));
    }

    void decouvert_rangeDansLesDettes() {
        Bilan(1000, 200, -100, 600, 500, 0);
        auto e = MontrerEcran<ecran::BilGraph>();
        QVERIFY(Texte(e.get(), "Label29").isEmpty());
        QCOMPARE(Texte(e.get(), "LMD"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte(e.get(), "LDAP"), QStringLiteral("600,00 E"));
        QCOMPARE(Hauteur(e.get(), "GMD"), 0.0);
        QCOMPARE(Hauteur(e.get(), "GBIENS"), 1000 * (2500.0 / 1200));
        QCOMPARE(Hauteur(e.get(), "GDAP"), 600 * (2500.0 / 1200));
        QCOMPARE(Haut(e.get(), "GBIENS"), 660.0);
        QCOMPARE(Haut(e.get(), "GDAR"), 660 + 1000 * (2500.0 / 1200));
        QVERIFY(qAbs(Pile(e.get(), Gauche) - 2500) < 1e-6);
        QVERIFY(qAbs(Pile(e.get(), Droite) - 2500) < 1e-6);
    }

    void dettesNegatives_passentDeLAutreCote() {
        // Dettes à payer négatives : des créances.
        Bilan(1000, 100, 100, 1300, -100, 0);
        auto e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(Texte(e.get(), "LDAP"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte(e.get(), "LDAR"), QStringLiteral("200,00 E"));
        // Dettes à recevoir négatives : des dettes.
        Bilan(1000, -100, 100, 700, 300, 0);
        e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(Texte(e.get(), "LDAR"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte(e.get(), "LDAP"), QStringLiteral("400,00 E"));
    }

    void perteAGaucheBeneficeADroite_pilesDeMemeHauteur() {
        Bilan(900, 0, 0, 1000, 0, -100);
        auto e = MontrerEcran<ecran::BilGraph>();
        QVERIFY(!Jauge(e.get(), "GRN")->isHidden());
        QVERIFY(Jauge(e.get(), "GRP")->isHidden());
        QCOMPARE(Jauge(e.get(), "GRN")->format(), T("Résultat Négatif"));
        QCOMPARE(Hauteur(e.get(), "GRN"), 100 * (2500.0 / 1000));
        QVERIFY(qAbs(Pile(e.get(), Gauche) - 2500) < 1e-6);
        QVERIFY(qAbs(Pile(e.get(), Droite) - 2500) < 1e-6);
        QCOMPARE(Texte(e.get(), "Label31"),
                 T("L'exercice n'est pas terminé. Les écritures d'inventaires sont-elles "
                   "passées ?"));
        Bilan(1100, 0, 0, 1000, 0, 100);
        e = MontrerEcran<ecran::BilGraph>();
        QVERIFY(Jauge(e.get(), "GRN")->isHidden());
        QVERIFY(!Jauge(e.get(), "GRP")->isHidden());
        QCOMPARE(Jauge(e.get(), "GRP")->format(), T("Résultat Positif"));
        QVERIFY(qAbs(Pile(e.get(), Gauche) - 2500) < 1e-6);
        QVERIFY(qAbs(Pile(e.get(), Droite) - 2500) < 1e-6);
    }

    void resultatAffecte_leMessageLeDit() {
        Bilan(1000, 0, 0, 1000, 0, 0);
        auto e = MontrerEcran<ecran::BilGraph>();
        QCOMPARE(Texte(e.get(), "Label31"), T("Votre résultat a été affecté à la situation nette"));
        QVERIFY(Texte(e.get(), "LRES").startsWith(T("Résultat :")));
        QVERIFY(Jauge(e.get(), "GRN")->isHidden());
        QVERIFY(Jauge(e.get(), "GRP")->isHidden());
    }

    void livresReels_pilesDe2500() {
        auto e = MontrerEcran<ecran::BilGraph>();
        QVERIFY2(Texte(e.get(), "Label29").isEmpty(), qPrintable(Texte(e.get(), "Label30")));
        QVERIFY(qAbs(Pile(e.get(), Gauche) - 2500) < 1e-6);
        QVERIFY(qAbs(Pile(e.get(), Droite) - 2500) < 1e-6);
    }

    void compteDeResultat_perteEtBenefice() {
        auto e = MontrerEcran<ecran::BilGraph>();
        CliquerOption(e.get(), "Option2");
        QCOMPARE(e->windowTitle(), T("Compte de Résultat Graphique"));
        QVERIFY(!e->findChild<QGroupBox*>("Frame3")->isHidden());
        QVERIFY(e->findChild<QGroupBox*>("Frame1")->isHidden());
        // Charges 200, produits 170 : perte de 30 du côté des produits.
        QCOMPARE(Texte(e.get(), "LCONS"), QStringLiteral("200,00 E"));
        QCOMPARE(Texte(e.get(), "LACTI"), QStringLiteral("170,00 E"));
        QVERIFY(!Jauge(e.get(), "GRNCR")->isHidden());
        QVERIFY(Jauge(e.get(), "GRPCR")->isHidden());
        QCOMPARE(Hauteur(e.get(), "GCONS"), 2500.0);
        QCOMPARE(Hauteur(e.get(), "GRNCR"), 30 * (2500.0 / 200));
        QCOMPARE(Haut(e.get(), "GRNCR"), 660 + 170 * (2500.0 / 200));
        CliquerOption(e.get(), "Option1");
        QCOMPARE(e->windowTitle(), QStringLiteral("Bilan Graphique"));
        QVERIFY(!e->findChild<QGroupBox*>("Frame1")->isHidden());
    }

    void compteDeResultat_refusSansEcriture() {
        Base().exec("UPDATE Compte SET Solde=0 WHERE ErCpt IN ('E2', 'R2')");
        auto e = MontrerEcran<ecran::BilGraph>();
        CliquerOption(e.get(), "Option2");
        QCOMPARE(Texte(e.get(), "Label29"), T("Le compte de résultat ne peut être affiché."));
        QCOMPARE(Texte(e.get(), "Label30"),
                 T("Raison : Vous n'avez pas encore passé d'écritures."));
    }

    void aide_initiationEnFrancais() {
        QVERIFY(QFile::exists(ui::PageAide(ecran::BilGraph::PageInitiation)));
        auto e = MontrerEcran<ecran::BilGraph>();
        support::CliquerBouton(e.get(), "Command2");
        QTRY_VERIFY(ui::FenetreAide() && ui::FenetreAide()->isVisible());
        auto* texte = ui::FenetreAide()->findChild<QTextBrowser*>("TexteAide");
        QVERIFY(texte);
        QVERIFY(texte->toPlainText().contains(T("Initiation originale à la comptabilité")));
        QVERIFY(texte->toPlainText().contains(T("Situation Nette")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestBilGraph t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_bilgraph.moc"
