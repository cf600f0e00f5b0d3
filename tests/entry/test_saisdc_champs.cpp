// Saisie en débits et crédits : les champs qui se contrôlent en perdant le focus, l'ordre
// du clavier entre champs et listes, et le détail du compte choisi.

#include "EssaiSaisDC.h"

#include "posting/Filtre.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/ChampDate.h"

#include <QApplication>

using namespace essai;

class TestSaisDCChamps : public QObject {
    Q_OBJECT
    EcranDC dc;

    void Ouvrir(const QString& journal) {
        dc.Ouvrir(journal);
        dc.e->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dc.e.get()));
    }
    QWidget* Focus() const { return QApplication::focusWidget(); }
    QString NomFocus() const { return Focus() ? Focus()->objectName() : QString(); }
    void Touche(const char* champ, Qt::Key cle) {
        QWidget* w = dc.e->findChild<QWidget*>(champ);
        w->setFocus();
        QTest::keyClick(w, cle);
    }

private slots:
    void init() { dc.Preparer(); }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        dc.Liberer();
    }

    void dateMalSaisie_messageEtRetourAuChamp() {
        Ouvrir("D");
        dc.Champ("Text1")->setFocus();
        ui::FixerTexteDate(dc.Champ("Text1"), QStringLiteral("31/02/2024"));
        ui::RepondreBoite(ui::Reponse::OK);
        dc.Champ("Text4")->setFocus();
        QCOMPARE(DerniereBoite(), QStringLiteral("La date a été mal saisie."));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Exclamation);
        QTRY_COMPARE(NomFocus(), QStringLiteral("Text1"));
    }

    void echeanceVide_aucunControle() {
        Ouvrir("V");
        dc.Champ("Text3")->setFocus();
        dc.Champ("Text4")->setFocus();
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void libelleVide_messageEtFocusSurEcheance() {
        Ouvrir("V");
        dc.Champ("Text2")->setFocus();
        ui::RepondreBoite(ui::Reponse::OK);
        dc.t1->setFocus();
        QCOMPARE(DerniereBoite(), QStringLiteral("Le libellé est OBLIGATOIRE"));
        QCOMPARE(NomFocus(), QStringLiteral("Text3"));
    }

    void clavier_ordreDesChampsSansEcheance() {
        Ouvrir("D");
        dc.Libelle(QStringLiteral("Essai"));
        Touche("Text1", Qt::Key_Return);
        QCOMPARE(NomFocus(), QStringLiteral("Text2"));
        Touche("Text2", Qt::Key_Return);
        QCOMPARE(NomFocus(), QStringLiteral("Text4"));
        Touche("Text4", Qt::Key_Up);
        QCOMPARE(NomFocus(), QStringLiteral("Text2"));
        Touche("Text4", Qt::Key_Right);
        QCOMPARE(NomFocus(), QStringLiteral("Tree2"));
        // Entrée dans la recherche vide : la liste des comptes.
        Touche("Text4", Qt::Key_Return);
        QCOMPARE(NomFocus(), QStringLiteral("Tree1"));
    }

    void clavier_ordreAvecEcheance() {
        Ouvrir("V");
        dc.Libelle(QStringLiteral("Essai"));
        Touche("Text2", Qt::Key_Return);
        QCOMPARE(NomFocus(), QStringLiteral("Text3"));
        Touche("Text3", Qt::Key_Down);
        QCOMPARE(NomFocus(), QStringLiteral("Text4"));
        Touche("Text3", Qt::Key_Up);
        QCOMPARE(NomFocus(), QStringLiteral("Text2"));
        Touche("Text4", Qt::Key_Up);
        QCOMPARE(NomFocus(), QStringLiteral("Text3"));
    }

    void clavier_listes() {
        Ouvrir("D");
        dc.Libelle(QStringLiteral("Essai"));
        dc.t1->setFocus();
        dc.t1->FixerLigneCourante(0);
        QTest::keyClick(dc.t1, Qt::Key_Up);
        QCOMPARE(NomFocus(), QStringLiteral("Text4"));
        // Entrée sur un compte : il passe à droite.
        dc.t1->setFocus();
        QTest::keyClick(dc.t1, Qt::Key_Return);
        QCOMPARE(dc.t2->NombreLignes(), 1);
        dc.t1->FixerLigneCourante(dc.t1->NombreLignes() - 1);
        QTest::keyClick(dc.t1, Qt::Key_Down);
        QCOMPARE(NomFocus(), QStringLiteral("Tree2"));
        dc.t2->FixerLigneCourante(0);
        QTest::keyClick(dc.t2, Qt::Key_Down);
        QCOMPARE(NomFocus(), QStringLiteral("Command2"));
        dc.t2->setFocus();
        QTest::keyClick(dc.t2, Qt::Key_Left);
        QCOMPARE(NomFocus(), QStringLiteral("Tree1"));
        // Suppr retire la ligne.
        dc.t2->setFocus();
        QTest::keyClick(dc.t2, Qt::Key_Delete);
        QCOMPARE(dc.t2->NombreLignes(), 0);
        QCOMPARE(Compter("SELECT COUNT(*) FROM wSaisie"), 0);
    }

    void nouveauCompte_planPuisListeRelue() {
        Ouvrir("D");
        dc.Libelle(QStringLiteral("Essai"));
        const int avant = dc.t1->NombreLignes();
        support::PiloteModal pilote;
        pilote.Attendre("Plan2", [](QWidget* f) {
            // Un compte créé pendant le détour par le plan.
            AssurerCompte(Cle, QStringLiteral("627"), QStringLiteral("Frais bancaires"), {}, {});
            support::Fermer()(f);
        });
        pilote.Demarrer();
        QTest::mouseClick(dc.Bouton("Command4"), Qt::LeftButton);
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(dc.t1->NombreLignes(), avant + 1);
        QVERIFY(dc.t1->ChercherTexte(0, "627") >= 0);
    }

    void detailSansCompte_messagePuisDetail() {
        Ouvrir("D");
        dc.Libelle(QStringLiteral("Essai"));
        dc.t1->clearSelection();
        dc.t1->FixerLigneCourante(-1);
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(dc.Bouton("Command6"), Qt::LeftButton);
        QCOMPARE(DerniereBoite(), QStringLiteral("Aucun compte n'est sélectionné !"));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);

        dc.t1->FixerLigneCourante(dc.t1->ChercherTexte(0, "512"));
        support::PiloteModal pilote;
        pilote.Attendre("DetailCp", support::Fermer());
        pilote.Demarrer();
        QTest::mouseClick(dc.Bouton("Command6"), Qt::LeftButton);
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(session().CompteChoisi, QStringLiteral("512"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisDCChamps t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_saisdc_champs.moc"
