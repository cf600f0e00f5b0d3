// Une journée au clavier : dix factures de vente à la suite sur le menu "11" avec rappel
// des comptes, chacune passée sans la souris (Tab, Espace, Entrée, flèches) ; la suivante
// repart des comptes rappelés à zéro.

#include "support/DossierEssai.h"
#include "support/PiloteModal.h"

#include "SaisieEssai.h"
#include "entry/Choisais.h"
#include "entry/SaisQuad.h"
#include "posting/Verification.h"
#include "ui/Application.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using namespace essai;
using support::PiloteModal;

namespace {

void Touche(Qt::Key cle) {
    QWidget* w = QApplication::focusWidget();
    if (!w) {
        support::SignalerEchec(QStringLiteral("Aucun champ n'a le focus"));
        return;
    }
    QTest::keyClick(w, cle);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

// Tabulation jusqu'au contrôle voulu.
bool TabJusqua(QWidget* ecran, const QString& nom) {
    QWidget* cible = ecran->findChild<QWidget*>(nom);
    for (int i = 0; i < 40 && cible; ++i) {
        if (QApplication::focusWidget() == cible) return true;
        Touche(Qt::Key_Tab);
    }
    support::SignalerEchec(QStringLiteral("Tab n'atteint pas %1").arg(nom));
    return false;
}

// Flèche vers le bas jusqu'au compte, puis Entrée (le compte passe à droite).
void ChoisirAuClavier(QWidget* ecran, const QString& numero) {
    auto* g = ecran->findChild<ui::Grille*>(QStringLiteral("Tree1"));
    if (!TabJusqua(ecran, QStringLiteral("Tree1"))) return;
    if (g->LigneCourante() < 0) Touche(Qt::Key_Down);
    for (int i = 0; i < g->NombreLignes() && g->Texte(g->LigneCourante(), 0).trimmed() != numero;
         ++i)
        Touche(Qt::Key_Down);
    Touche(Qt::Key_Return);
}

// Les options forment un groupe : Tab atteint celle qui est cochée, les flèches cochent la
// suivante.
void OptionAuClavier(QWidget* ecran, const QString& option) {
    QWidget* cochee = nullptr;
    for (const char* nom : {"Option1", "Option2", "Option3"}) {
        auto* o = ecran->findChild<QRadioButton*>(QString::fromLatin1(nom));
        if (o && o->isChecked()) cochee = o;
    }
    if (!cochee || !TabJusqua(ecran, cochee->objectName())) return;
    QWidget* cible = ecran->findChild<QWidget*>(option);
    // Les options sont côte à côte : la flèche droite passe à la suivante.
    for (int i = 0; i < 3 && QApplication::focusWidget() != cible; ++i)
        Touche(Qt::Key_Right);
    if (QApplication::focusWidget() != cible)
        support::SignalerEchec(QStringLiteral("Les flèches n'atteignent pas %1").arg(option));
}

// Entrée ouvre la cellule "Montant" de la ligne courante ; le montant est tapé puis validé.
void MontantAuClavier(const QString& montant) {
    auto* g = qobject_cast<ui::Grille*>(QApplication::focusWidget());
    if (!g) {
        support::SignalerEchec(QStringLiteral("Le focus n'est pas dans une liste"));
        return;
    }
    Touche(Qt::Key_Return);
    if (!support::TaperDansCellule(g, montant))
        support::SignalerEchec(QStringLiteral("Montant %1 non validé").arg(montant));
}

QStringList ComptesChoisis(QWidget* ecran) {
    QStringList l;
    auto* g = ecran->findChild<ui::Grille*>(QStringLiteral("Tree2"));
    for (int i = 0; i < g->NombreLignes(); ++i)
        l << g->Texte(i, 0).trimmed();
    return l;
}

} // namespace

class TestSaisQuadClavier : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*dossier);
        CopierPlan(QStringLiteral("0001"));
        Base().exec("DELETE FROM wSaisie");
        session().EcriturePassee = false;
        ui::ViderJournalBoites();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void dixFacturesDeVente_auClavierAvecRappel() {
        GardeBoites garde;
        QStringList rappels;
        PiloteModal p;
        p.Attendre("Choisais", [](QWidget* w) {
             if (TabJusqua(w, "Command1")) Touche(Qt::Key_Space);
         }).Attendre("Saislog", [](QWidget* w) {
            if (!TabJusqua(w, "List1")) return;
            Touche(Qt::Key_Down); // la famille 1 devient courante
            support::ChoisirLigneListe(w, "List1", 0);
            if (!TabJusqua(w, "List2")) return;
            support::ChoisirLigneListe(w, "List2", 0, true);
        });
        for (int i = 0; i < 10; ++i) {
            p.Attendre("ChoixCpt", [i, &rappels](QWidget* w) {
                if (i == 0) {
                    ChoisirAuClavier(w, "7071");
                    OptionAuClavier(w, "Option2");
                    ChoisirAuClavier(w, "445711");
                    OptionAuClavier(w, "Option3");
                } else {
                    // Retour de l'écriture : les comptes rappelés, la case du client.
                    rappels << ComptesChoisis(w).join(',') +
                                   QStringLiteral("/%1").arg(
                                       Compter("SELECT COUNT(*) FROM wSaisie WHERE wMntEcr<>0"));
                }
                ChoisirAuClavier(w, "411");
                if (TabJusqua(w, "Command3")) Touche(Qt::Key_Space);
            });
            p.Attendre("SaisQuad", [i](QWidget* w) {
                w->findChild<QLineEdit*>("Text1")->setFocus();
                Touche(Qt::Key_Return);
                QTest::keyClicks(QApplication::focusWidget(),
                                 QStringLiteral("Facture n° %1").arg(i + 1));
                Touche(Qt::Key_Return); // vers l'échéance
                Touche(Qt::Key_Return); // vers ACTIF
                MontantAuClavier(QString::number(120 + i));
                Touche(Qt::Key_Down); // PASSIF
                MontantAuClavier(QStringLiteral("20"));
                Touche(Qt::Key_Down); // CHARGES, vide
                Touche(Qt::Key_Down); // PRODUITS
                MontantAuClavier(QString::number(100 + i));
                Touche(Qt::Key_Down); // "&OK", ouvert
                if (QApplication::focusWidget() != w->findChild<QPushButton*>("Command1"))
                    support::SignalerEchec(QStringLiteral("\"&OK\" n'a pas le focus"));
                Touche(Qt::Key_Space);
            });
        }
        p.Attendre("ChoixCpt", [](QWidget* w) {
            if (TabJusqua(w, "Command7")) Touche(Qt::Key_Space);
        });
        p.Demarrer();
        ecran::Choisais e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(p.Reussi(), qPrintable(p.Echec()));
        QCOMPARE(garde.inattendues, QStringList());
        QCOMPARE(rappels, QStringList(9, QStringLiteral("7071,445711/0")));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE CleCpt='012024'"), 30);
        for (int i = 0; i < 10; ++i) {
            SQLite::Statement q(Base(), "SELECT NumCptEcr, DCEcr, MntEcr, Journal FROM Ecriture "
                                        "WHERE LibEcr=? ORDER BY NumCptEcr");
            q.bind(1, QStringLiteral("Facture n° %1").arg(i + 1).toStdString());
            QStringList l;
            while (q.executeStep())
                l << QStringLiteral("%1 %2 %3 %4")
                         .arg(Colonne(q, 0), Colonne(q, 1))
                         .arg(q.getColumn(2).getInt64() / 10000)
                         .arg(Colonne(q, 3));
            QCOMPARE(l, (QStringList{QStringLiteral("411 D %1 V").arg(120 + i),
                                     QStringLiteral("445711 C 20 V"),
                                     QStringLiteral("7071 C %1 V").arg(100 + i)}));
        }
        QVERIFY(Verification());
    }
    void ordreDuClavier_flechesHautEtRetourSansOK() {
        session().CleMenuSaisie = QStringLiteral("31");
        session().LigneMenuSaisie = CaseDeMenu("311").tLibMenuprinc;
        Preparer("512", "311", 1);
        Preparer("531", "312", 2);
        ecran::SaisQuad e;
        e.show();
        e.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&e));
        auto nom = [] {
            return QApplication::focusWidget() ? QApplication::focusWidget()->objectName()
                                               : QString();
        };
        // Trésorerie : pas d'échéance, Text2 mène droit à ACTIF.
        e.findChild<QLineEdit*>("Text1")->setFocus();
        Touche(Qt::Key_Up);
        QCOMPARE(nom(), QStringLiteral("Command3"));
        e.findChild<QLineEdit*>("Text1")->setFocus();
        Touche(Qt::Key_Down);
        QCOMPARE(nom(), QStringLiteral("Text2"));
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Virement"));
        Touche(Qt::Key_Up);
        QCOMPARE(nom(), QStringLiteral("Text1"));
        Touche(Qt::Key_Return);
        Touche(Qt::Key_Return);
        QCOMPARE(nom(), QStringLiteral("Tree1"));
        Touche(Qt::Key_Up);
        QCOMPARE(nom(), QStringLiteral("Text2"));
        Touche(Qt::Key_Down);
        auto* t1 = e.findChild<ui::Grille*>("Tree1");
        QCOMPARE(t1->NombreLignes(), 2);
        Touche(Qt::Key_Down);
        QCOMPARE(t1->LigneCourante(), 1);
        Touche(Qt::Key_Down); // dernière ligne d'ACTIF : PASSIF, vide
        QCOMPARE(nom(), QStringLiteral("Tree2"));
        Touche(Qt::Key_Up); // première ligne : retour à ACTIF, sur sa dernière ligne
        QCOMPARE(nom(), QStringLiteral("Tree1"));
        QCOMPARE(t1->LigneCourante(), 1);
        for (int i = 0; i < 3; ++i)
            Touche(Qt::Key_Down);
        QCOMPARE(nom(), QStringLiteral("Tree4"));
        Touche(Qt::Key_Down); // "&OK" fermé : "&Retour"
        QCOMPARE(nom(), QStringLiteral("Command2"));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void libelleVideQuitte_messageSansForcerLeFocus() {
        Preparer("7071", "111", 1);
        Preparer("411", "113", 2);
        session().CleMenuSaisie = QStringLiteral("11");
        ecran::SaisQuad e;
        e.show();
        e.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&e));
        e.findChild<QLineEdit*>("Text2")->setFocus();
        ui::RepondreBoite(ui::Reponse::OK);
        Touche(Qt::Key_Return);
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Le libellé est OBLIGATOIRE")});
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Text3"));
        // Aucun compte courant : le détail le dit.
        session().CompteChoisi.clear();
        ui::ViderJournalBoites();
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerBouton(&e, "Command5"));
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Aucun compte n'est sélectionné !")});
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisQuadClavier t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_saisquad_clavier.moc"
