// Gestion du plan comptable, côté plans standards : liste des plans, plan retenu, copie de
// comptes choisis ou de la totalité (deux fois : la seconde n'ajoute rien), filtres clients
// et fournisseurs, sortie de l'écran (plan retenu, comptes collectifs) et écrans ouverts
// depuis le plan.

#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "chart/Plan2.h"
#include "posting/Filtre.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "ui/Aide.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <memory>

using namespace essai;
using ui::Reponse;

namespace {

struct PlanType {
    QString numero, nom;
    QList<QPair<QString, QString>> comptes;
};

QList<PlanType> PlansLivres() {
    QList<PlanType> plans;
    const FichierProfil ini(QStringLiteral(":/data/maroval.ini"));
    const int n = ini.Lire("Plans Types", "NbPlan", "0").toInt();
    for (int i = 1; i <= n; ++i) {
        PlanType p{ini.Lire("Plans Types", QStringLiteral("Plan%1").arg(i)),
                   ini.Lire("Plans Types", QStringLiteral("Libel%1").arg(i)),
                   {}};
        SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt FROM PlanType WHERE NumPlan=? "
                                    "ORDER BY rowid");
        q.bind(1, p.numero.toStdString());
        while (q.executeStep())
            p.comptes << qMakePair(QString::fromUtf8(q.getColumn(0).getText()).trimmed(),
                                   QString::fromUtf8(q.getColumn(1).getText()).trimmed());
        plans << p;
    }
    return plans;
}

QString Ini(const support::DossierEssai& d, const QString& cle) {
    return FichierProfil(d.Fichier("maroval.ini")).Lire("Plans Types", cle, "<absent>");
}

} // namespace

class TestPlan2 : public QObject {
    Q_OBJECT
    CadreEssai cadre;

    std::unique_ptr<ecran::Plan2> Montrer() { return MontrerEcran<ecran::Plan2>(); }
    template <class T> static T* W(QWidget* e, const char* nom) {
        return e->findChild<T*>(QString::fromLatin1(nom));
    }
    static ui::Grille* Tree3(QWidget* e) { return W<ui::Grille>(e, "Tree3"); }
    static QStringList Numeros(ui::Grille* g) {
        QStringList l;
        for (int i = 0; i < g->NombreLignes(); ++i)
            l << g->Texte(i, 0);
        return l;
    }
    void ChoisirPlan(QWidget* e, int rang) { support::ChoisirLigneListe(e, "List1", rang); }
    // "Sélectionner la Totalité du plan choisi", confirmée.
    void PrendreTout(QWidget* e) {
        ui::RepondreBoite(Reponse::Oui);
        support::CliquerBouton(e, "Command1");
    }

private slots:
    void init() { cadre.Ouvrir(); }
    void cleanup() {
        ui::PileModale::FermerTout();
        cadre.Fermer();
    }

    void ouverture_controlesEtListeDesPlans() {
        auto e = Montrer();
        QCOMPARE(e->objectName(), QStringLiteral("Plan2"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Gestion du Plan Comptable"));
        ui::Grille* t = Tree3(e.get());
        QStringList titres;
        for (int c = 0; c < t->NombreColonnes(); ++c)
            titres << t->Titre(c);
        QCOMPARE(titres, QStringList({"Numéro", "Libellé", "Solde"}));
        QCOMPARE(W<QGroupBox>(e.get(), "Frame2")->title(),
                 QStringLiteral("Sélection de comptes dans un plan standard"));
        QCOMPARE(W<QGroupBox>(e.get(), "Frame3")->title(),
                 QStringLiteral("Création d'un nouveau compte"));
        QVERIFY(!W<QGroupBox>(e.get(), "Frame3")->isVisible());
        QVERIFY(!W<QProgressBar>(e.get(), "Gauge1")->isVisible());
        QCOMPARE(W<QPushButton>(e.get(), "Command9")->text(),
                 QStringLiteral("Création de votre premier bilan d'ouverture"));
        auto* l1 = W<QListWidget>(e.get(), "List1");
        const QList<PlanType> plans = PlansLivres();
        QCOMPARE(l1->count(), plans.size());
        for (int i = 0; i < plans.size(); ++i) {
            QCOMPARE(l1->item(i)->text(), plans[i].nom);
            QCOMPARE(l1->item(i)->data(Qt::UserRole).toString(), plans[i].numero);
        }
        QCOMPARE(l1->currentRow(), -1);
        QCOMPARE(W<QListWidget>(e.get(), "List2")->count(), 0);
        QCOMPARE(W<QLabel>(e.get(), "Label5")->text(), QStringLiteral("0 comptes"));
    }

    void ouverture_planRetenuDeLaSocieteChoisi() {
        FichierProfil(cadre.dossier->Fichier("maroval.ini"))
            .Ecrire("Plans Types", "PlanChoisi1", "0003");
        auto e = Montrer();
        auto* l1 = W<QListWidget>(e.get(), "List1");
        QCOMPARE(l1->currentRow(), 2);
        QCOMPARE(W<QListWidget>(e.get(), "List2")->count(), PlansLivres()[2].comptes.size());
    }

    void ouverture_bilanClosChangeLeBouton() {
        table::Constante k = Constante();
        k.OuvertureClos = true;
        MajConstante(Cle, k);
        auto e = Montrer();
        QCOMPARE(W<QPushButton>(e.get(), "Command9")->text(),
                 QStringLiteral("Consultation du Bilan d'Ouverture"));
    }

    void clicPlan_listeDuPlanChoisi() {
        auto e = Montrer();
        ChoisirPlan(e.get(), 0);
        auto* l2 = W<QListWidget>(e.get(), "List2");
        const PlanType p = PlansLivres()[0];
        QCOMPARE(l2->count(), p.comptes.size());
        QCOMPARE(l2->item(0)->text(), p.comptes[0].first + "\t" + p.comptes[0].second);
        QCOMPARE(l2->item(0)->data(Qt::UserRole).toString(), p.comptes[0].first);
    }

    void totalite_sansPlanChoisiLeMessage() {
        auto e = Montrer();
        ui::RepondreBoite(Reponse::OK);
        support::CliquerBouton(e.get(), "Command1");
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites().first().texte,
                 QStringLiteral("Sélectionnez d'abord un Plan Standard dans la liste de gauche."));
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("Maroval"));
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Information);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 0);
    }

    void totalite_nonNePrendRien() {
        auto e = Montrer();
        ChoisirPlan(e.get(), 1);
        ui::RepondreBoite(Reponse::Non);
        support::CliquerBouton(e.get(), "Command1");
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("Confirmation"));
        QCOMPARE(ui::JournalBoites().first().boutons, ui::Boutons::OuiNon);
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Question);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 0);
        QCOMPARE(Tree3(e.get())->NombreLignes(), 0);
    }

    void totalite_chaquePlanDeuxFois_data() {
        QTest::addColumn<int>("rang");
        for (int i = 0; i < 5; ++i)
            QTest::addRow("plan %d", i + 1) << i;
    }
    void totalite_chaquePlanDeuxFois() {
        QFETCH(int, rang);
        const PlanType p = PlansLivres().value(rang);
        QVERIFY(p.comptes.size() > 100);
        auto e = Montrer();
        ChoisirPlan(e.get(), rang);
        PrendreTout(e.get());
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("Vous allez prendre la totalité du plan standard "
                                            "\"%1\".\r\rEtes-vous d'accord ?")
                                 .arg(p.nom)});
        const int n = static_cast<int>(p.comptes.size());
        QCOMPARE(Tree3(e.get())->NombreLignes(), n);
        QCOMPARE(W<QLabel>(e.get(), "Label5")->text(), QStringLiteral("%1 comptes").arg(n));
        QVERIFY(!W<QProgressBar>(e.get(), "Gauge1")->isVisible());
        QCOMPARE(W<QProgressBar>(e.get(), "Gauge1")->value(), n);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='012024'"), n);
        int budgets = 0;
        for (const auto& [numero, libelle] : p.comptes) {
            const table::Compte c = LireCpt(numero);
            QCOMPARE(c.LibCpt.trimmed(), libelle.left(40).trimmed());
            const table::Filtre f = LireFiltre(CleFiltre(numero));
            QCOMPARE(c.ErCpt.trimmed(), f.ERCPT.trimmed());
            QVERIFY2(c.ErCpt.trimmed() != "NN" && c.ErCpt.trimmed() != "WW" &&
                         !c.ErCpt.trimmed().isEmpty(),
                     qPrintable(numero));
            const bool budget = numero >= "600" && numero != "699" && numero != "799";
            QCOMPARE(BudgetExiste(numero), budget);
            budgets += budget;
        }
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget"), budgets);
        // Tri sur les numéros.
        QStringList tries = Numeros(Tree3(e.get()));
        QStringList attendus = tries;
        attendus.sort();
        QCOMPARE(tries, attendus);

        // Seconde fois : rien d'ajouté, libellés changés entre-temps gardés.
        const QString premier = p.comptes.first().first;
        table::Compte c = LireCpt(premier);
        c.LibCpt = QStringLiteral("Libellé à moi");
        MajCompte(Cle, premier, c);
        PrendreTout(e.get());
        QCOMPARE(Tree3(e.get())->NombreLignes(), n);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='012024'"), n);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget"), budgets);
        QCOMPARE(LireCpt(premier).LibCpt.trimmed(), QStringLiteral("Libellé à moi"));
    }

    void selection_ajouteLesLignesChoisiesUneFois() {
        auto e = Montrer();
        ChoisirPlan(e.get(), 0);
        auto* l2 = W<QListWidget>(e.get(), "List2");
        const PlanType p = PlansLivres()[0];
        l2->item(0)->setSelected(true);
        l2->item(3)->setSelected(true);
        support::CliquerBouton(e.get(), "Command2");
        QCOMPARE(Numeros(Tree3(e.get())), QStringList({p.comptes[0].first, p.comptes[3].first}));
        l2->item(5)->setSelected(true);
        support::CliquerBouton(e.get(), "Command2");
        QCOMPARE(Tree3(e.get())->NombreLignes(), 3);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 3);
        QCOMPARE(W<QLabel>(e.get(), "Label5")->text(), QStringLiteral("3 comptes"));
        // Double clic : la ligne s'ajoute aussitôt.
        l2->clearSelection();
        support::ChoisirLigneListe(e.get(), "List2", 7, true);
        QCOMPARE(Tree3(e.get())->NombreLignes(), 4);
        QVERIFY(CompteExiste(p.comptes[7].first));
    }

    void panneaux_nouveauCompteEtPlansStandards() {
        auto e = Montrer();
        support::CliquerBouton(e.get(), "Command5");
        QVERIFY(!W<QWidget>(e.get(), "Frame2")->isVisible());
        QVERIFY(!W<QWidget>(e.get(), "Command1")->isVisible());
        QVERIFY(!W<QWidget>(e.get(), "SSPanel1")->isVisible());
        QVERIFY(W<QWidget>(e.get(), "Frame3")->isVisible());
        QVERIFY(W<QWidget>(e.get(), "Command7")->isVisible());
        QVERIFY(W<QRadioButton>(e.get(), "BRgeneral")->isChecked());
        QVERIFY(!W<QRadioButton>(e.get(), "BRclient")->isChecked());
        QCOMPARE(QApplication::focusWidget(), W<QWidget>(e.get(), "Mnumero"));
        support::CliquerBouton(e.get(), "Command7");
        QVERIFY(W<QWidget>(e.get(), "Frame2")->isVisible());
        QVERIFY(W<QWidget>(e.get(), "Command1")->isVisible());
        QVERIFY(W<QWidget>(e.get(), "SSPanel1")->isVisible());
        QVERIFY(!W<QWidget>(e.get(), "Frame3")->isVisible());
        QVERIFY(!W<QWidget>(e.get(), "Command7")->isVisible());
    }

    void filtres_clientsFournisseursEtGeneral() {
        Compte("411DUPON", "Dupont");
        Compte("411MARTI", "Martin");
        Compte("401BOIS", "Bois et fils");
        Compte("512", "Banque");
        auto e = Montrer();
        support::CliquerBouton(e.get(), "Command5");
        auto* numero = W<QLineEdit>(e.get(), "Mnumero");
        QCOMPARE(numero->inputMask(), QStringLiteral("00000000;_"));
        CliquerOption(e.get(), "BRclient");
        QCOMPARE(Numeros(Tree3(e.get())), QStringList({"411DUPON", "411MARTI"}));
        QCOMPARE(W<QLabel>(e.get(), "Label5")->text(), QStringLiteral("2 comptes"));
        QCOMPARE(numero->displayText(), QStringLiteral("41______"));
        CliquerOption(e.get(), "BRfournisseur");
        QCOMPARE(Numeros(Tree3(e.get())), QStringList({"401BOIS"}));
        QCOMPARE(numero->displayText(), QStringLiteral("40______"));
        CliquerOption(e.get(), "BRgeneral");
        QCOMPARE(Tree3(e.get())->NombreLignes(), 4);
        QCOMPARE(numero->displayText(), QStringLiteral("________"));
    }

    void clicLigne_numeroEtLibelleDansLePanneau() {
        Compte("512", "Banque Populaire");
        auto e = Montrer();
        support::CliquerCellule(Tree3(e.get()), 0, 1);
        QCOMPARE(W<QLabel>(e.get(), "SSPanel1")->text(), QStringLiteral("512   Banque Populaire"));
    }

    void clicTitre_trieSurLaColonne() {
        Compte("512", "Banque");
        Compte("607", "Achats");
        Compte("411A", "Client");
        auto e = Montrer();
        QCOMPARE(Numeros(Tree3(e.get())), QStringList({"411A", "512", "607"}));
        ui::Grille* t = Tree3(e.get());
        QTest::mouseClick(t->header()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(t->header()->sectionViewportPosition(1) + 5, 5));
        QCOMPARE(Numeros(t), QStringList({"607", "512", "411A"}));
    }

    void quitter_retientLePlanEtCreeLesCollectifs() {
        auto e = Montrer();
        ChoisirPlan(e.get(), 3);
        W<QListWidget>(e.get(), "List2")->item(0)->setSelected(true);
        W<QListWidget>(e.get(), "List2")->item(1)->setSelected(true);
        support::CliquerBouton(e.get(), "Command2");
        support::CliquerBouton(e.get(), "Command4");
        QCOMPARE(Ini(*cadre.dossier, "PlanChoisi1"), QStringLiteral("0004"));
        QCOMPARE(LireCpt("400").LibCpt.trimmed(), QStringLiteral("Fournisseurs collectif"));
        QCOMPARE(LireCpt("410").LibCpt.trimmed(), QStringLiteral("Clients collectif"));
        QCOMPARE(LireCpt("699").LibCpt.trimmed(), QStringLiteral("Compte pour résultat positif"));
        QCOMPARE(LireCpt("799").LibCpt.trimmed(), QStringLiteral("Compte pour résultat négatif"));
        QVERIFY(!BudgetExiste("699"));
        QVERIFY(!BudgetExiste("799"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 6);
    }

    void quitter_unSeulCompteNeCreeAucunCollectif() {
        Compte("512", "Banque");
        auto e = Montrer();
        ChoisirPlan(e.get(), 0);
        support::CliquerBouton(e.get(), "Command4");
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 1);
        // Plan choisi et liste non vide : retenu quand même.
        QCOMPARE(Ini(*cadre.dossier, "PlanChoisi1"), QStringLiteral("0001"));
    }

    void quitter_listeVideNeRetientPasLePlan() {
        auto e = Montrer();
        ChoisirPlan(e.get(), 2);
        support::CliquerBouton(e.get(), "Command4");
        QCOMPARE(Ini(*cadre.dossier, "PlanChoisi1"), QStringLiteral("<absent>"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 0);
    }

    void aide_contexteCinq() {
        auto e = Montrer();
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(ui::JournalDialogues().last().dialogue, ui::Dialogue::Aide);
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("5"));
        if (QDialog* aide = ui::FenetreAide()) aide->close();
    }

    void doubleClic_ouvreLeDetailDuCompte() {
        Compte("512", "Banque");
        auto e = Montrer();
        support::PiloteModal pilote;
        QString titre;
        pilote.Attendre("DetailCp", [&titre](QWidget* f) {
            titre = f->findChild<QLabel*>("Label1")->text();
            support::CliquerBouton(f, "Command1");
        });
        pilote.Demarrer();
        support::CliquerCellule(Tree3(e.get()), 0, 0, true);
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(session().CompteChoisi, QStringLiteral("512"));
        QCOMPARE(titre, QStringLiteral("512   Banque"));
    }

    void modifier_ouvreLeChangementDeLibelle() {
        Compte("512", "Banque");
        auto e = Montrer();
        Tree3(e.get())->FixerLigneCourante(0);
        support::PiloteModal pilote;
        QString numero, libelle;
        pilote.Attendre("ModifLibCpt", [&](QWidget* f) {
            numero = f->findChild<QLabel*>("Label1")->text();
            libelle = f->findChild<QLineEdit*>("EDlibelle")->text();
            support::CliquerBouton(f, "Command2");
        });
        pilote.Demarrer();
        support::CliquerBouton(e.get(), "Command10");
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(numero, QStringLiteral("512"));
        QCOMPARE(libelle, QStringLiteral("Banque"));
    }

    void bilan_cacheLePlanPuisLeRemontreRelu() {
        Compte("512", "Banque");
        ecran::Plan2 plan;
        support::PiloteModal pilote;
        bool planVisible = true;
        QString soldeAuRetour;
        pilote.Attendre("Plan2", support::Cliquer("Command9"))
            .Attendre("Prembil",
                      [&](QWidget* f) {
                          planVisible = plan.isVisible();
                          // Un montant tapé dans le bilan se voit au retour dans le plan.
                          auto* actif = f->findChild<ui::Grille*>("Tree1");
                          support::CliquerCellule(actif, actif->ChercherTexte(0, "512"), 2);
                          support::TaperDansCellule(actif, "250");
                          support::CliquerBouton(f, "Command4");
                      })
            .Attendre("Plan2", [&](QWidget* f) {
                ui::Grille* t = Tree3(f);
                soldeAuRetour = t->Texte(t->ChercherTexte(0, "512"), 2);
                support::CliquerBouton(f, "Command4");
            });
        pilote.Demarrer();
        plan.exec();
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QVERIFY(!planVisible);
        QCOMPARE(soldeAuRetour, QStringLiteral("250,00 E"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPlan2 t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_plan2.moc"
