// Transfert des soldes par l'écran Cloture : refus sans plan, transfert provisoire, second
// transfert après des écritures dans l'exercice suivant, comptes revenus à zéro ou vides,
// budget, précision affichée, cas équilibré sans être définitif, transfert définitif et
// clôture, jauge, et une passe interrompue à chaque écriture puis relancée.
#include "EssaiCloture.h"
#include "support/Captures.h"
#include "support/DisqueFautif.h"
#include "support/DossierEssai.h"
#include "support/ExerciceEssai.h"
#include "support/Outils.h"
#include "support/PiloteModal.h"

#include "posting/Verification.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "yearend/Cloture.h"
#include "yearend/DonneesCloture.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using namespace cloture_essai;
using essai::Cle;
using essai::Euros;
using ui::Reponse;

namespace {

const QString TexteSansPlan =
    QStringLiteral("Le nouveau plan comptable n’existe pas encore.\n\nCommencez par lancer le "
                   "choix : Création du plan comptable de l’exercice suivant.");
const QString TexteProvisoire =
    QStringLiteral("Vous venez de faire un transfert provisoire des soldes de\n"
                   "l’exercice en cours sur l’exercice suivant. Vous pouvez relancer\n"
                   "ce transfert provisoire autant de fois que vous le désirez.\n"
                   "\n"
                   "Nous rappelons que le choix Ecriture du résultat des\n"
                   "opérations d’inventaire de la saisie logique (ou son équivalent en\n"
                   "débits/crédits) vous permet d’équilibrer le bilan ce qui autorise\n"
                   "un nouveau transfert que le logiciel détectera comme pouvant\n"
                   "être définitif.\n"
                   "\n"
                   "Si vous tenez un contrôle budgétaire, n'oubliez pas les prévisions\n"
                   "de l'exercice suivant avant de clore l'exercice en cours.");
const QString TexteRappel =
    QStringLiteral("Il est recommandé de faire une sauvegarde de l'exercice en cours,\n"
                   "puis de relancer le logiciel en sélectionnant l'exercice suivant\n"
                   "et de faire également une sauvegarde de ce nouvel exercice.");
const QString TexteDefinitif =
    QStringLiteral("Vous avez fait un transfert définitif des soldes de l’exercice\nen cours "
                   "sur l’exercice suivant.\n\nVoulez-vous clore l’exercice en cours ?");

QPushButton* Bouton(QWidget& ecran, const char* nom) {
    return ecran.findChild<QPushButton*>(QString::fromLatin1(nom));
}

// Compte les apparitions d'un contrôle.
struct Guetteur : QObject {
    int vus = 0;
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Show) ++vus;
        return false;
    }
};

void Cliquer(QWidget& ecran, const char* nom) {
    QTest::mouseClick(Bouton(ecran, nom), Qt::LeftButton);
}

} // namespace

class TestClotureTransfert : public QObject {
    Q_OBJECT
    essai::CadreEssai cadre;

    // Exercice 2024 au 31 décembre, ouverture équilibrée (banque et capital), plan suivant.
    void Livres(bool avecVente, bool plan = true) {
        essai::OuvrirLivres(cadre.dossier->Chemin(), QStringLiteral("31/12/2024"));
        Constante(Cle, [](table::Constante& k) {
            k.OuvertureClos = true;
            k.DateSaisie = "20241231";
        });
        essai::SoldeOuverture("512", Euros(1000));
        essai::SoldeOuverture("101", Euros(1000));
        if (avecVente) essai::Vente(Euros(100), Euros(20));
        if (!plan) return;
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::Non);
        ecran::Cloture ecran;
        Cliquer(ecran, "Command1");
        ui::ViderJournalBoites();
    }

    // Un transfert par le bouton, ses boîtes répondues ; rend vrai si l'écran est resté.
    bool Transferer(const QList<Reponse>& reponses) {
        for (Reponse r : reponses)
            ui::RepondreBoite(r);
        ecran::Cloture ecran;
        ecran.show();
        Cliquer(ecran, "Command2");
        return ecran.isVisible();
    }

private slots:
    void init() { cadre.Ouvrir(false); }
    void cleanup() { cadre.Fermer(); }

    void sansPlan_messageRienEcritJaugeJamaisMontree() {
        Livres(true, false);
        const QStringList avant = ExerciceSuivant() + Lignes("Constante", "CleCon", Cle, "CleCon");
        ui::RepondreBoite(Reponse::OK);
        ecran::Cloture ecran;
        ecran.show();
        Guetteur guetteur;
        ecran.findChild<QProgressBar*>("Gauge1")->installEventFilter(&guetteur);
        Cliquer(ecran, "Command2");
        QCOMPARE(essai::TextesBoites(), QStringList{TexteSansPlan});
        QCOMPARE(guetteur.vus, 0);
        QVERIFY(ecran.isVisible());
        QCOMPARE(ExerciceSuivant() + Lignes("Constante", "CleCon", Cle, "CleCon"), avant);
    }

    // Un résultat de 100 reste dans les comptes de gestion : le bilan reporté n'est pas
    // équilibré, le transfert est provisoire.
    void provisoire_messageEtChiffres() {
        Livres(true);
        QVERIFY(!Transferer({Reponse::OK}));
        QCOMPARE(essai::TextesBoites(), QStringList{TexteProvisoire});
        QCOMPARE(CompteLu(Suivante, "512").Sde, Euros(1000));
        QCOMPARE(CompteLu(Suivante, "512").SoldeAnte, Euros(1000));
        QCOMPARE(CompteLu(Suivante, "411001").Sde, CompteLu(Cle, "411001").Solde);
        QCOMPARE(CompteLu(Suivante, "707").Sde, Montant());
        QCOMPARE(CompteLu(Suivante, "707").SoldeAnte, CompteLu(Cle, "707").Solde);
        QVERIFY(!CompteLu(Cle, "707").Solde.estNul());
        ComparerTotaux();
        QVERIFY(Lue(Suivante).SDE1 != Lue(Suivante).SDR1);
        QVERIFY(!Lue(Cle).ExerciceClos);
    }

    void jauge_etapesEtBoutonsPendantLaPasse() {
        Livres(true);
        ui::RepondreBoite(Reponse::OK);
        ecran::Cloture ecran;
        ecran.show();
        auto* jauge = ecran.findChild<QProgressBar*>("Gauge1");
        QList<int> valeurs;
        bool boutonsCoupes = true;
        connect(jauge, &QProgressBar::valueChanged, &ecran, [&](int v) {
            valeurs << v;
            boutonsCoupes = boutonsCoupes && !Bouton(ecran, "Command3")->isEnabled() &&
                            !Bouton(ecran, "Command4")->isEnabled() && jauge->isVisible();
        });
        Cliquer(ecran, "Command2");
        QCOMPARE(valeurs, (QList<int>{20, 50, 60, 75, 90, 100}));
        QVERIFY(boutonsCoupes);
        QVERIFY(Bouton(ecran, "Command3")->isEnabled());
        QVERIFY(Bouton(ecran, "Command4")->isEnabled());
        QVERIFY(jauge->isHidden());
    }

    // Des écritures dans l'exercice suivant restent ; les à-nouveaux sont recalculés.
    void secondTransfert_garderLesEcrituresDuSuivant() {
        Livres(true);
        Transferer({Reponse::OK});
        session().ExerciceCourant = 2025;
        session().DateSaisieCourante = QStringLiteral("15/01/2025");
        essai::ViderSaisie();
        essai::Saisir("512", "D", Euros(30));
        essai::Saisir("707", "C", Euros(30));
        essai::Passer();
        const table::Compte apresSaisie = CompteLu(Suivante, "512");
        QCOMPARE(apresSaisie.CumD, Euros(30));
        session().ExerciceCourant = 2024;
        session().DateSaisieCourante = QStringLiteral("31/12/2024");
        essai::Vente(Euros(50), Euros(10));
        ui::ViderJournalBoites();
        Transferer({Reponse::OK});
        const table::Compte c = CompteLu(Suivante, "512");
        QCOMPARE(c.CumD, apresSaisie.CumD);
        QCOMPARE(c.CumC, apresSaisie.CumC);
        QCOMPARE(c.Sde, CompteLu(Cle, "512").Solde);
        QCOMPARE(c.Solde, c.Sde + c.CumD + c.CumC);
        QCOMPARE(CompteLu(Suivante, "411001").Sde, Euros(180));
        ComparerTotaux();
    }

    // Revenu à zéro par des mouvements : non vide, créé à zéro ; jamais utilisé : absent,
    // sauf les quatre comptes fixes, recréés.
    void comptesRevenusAZeroOuVides() {
        Livres(false);
        essai::ViderSaisie();
        essai::Saisir("530", "D", Euros(50));
        essai::Saisir("512", "C", Euros(50));
        essai::Passer();
        essai::ViderSaisie();
        essai::Saisir("512", "D", Euros(50));
        essai::Saisir("530", "C", Euros(50));
        essai::Passer();
        Base().exec("DELETE FROM Compte WHERE CleCpt='012025' AND NumCpt IN ('699', '400')");
        Transferer({Reponse::Non, Reponse::OK});
        QVERIFY(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012025' AND "
                               "NumCpt='530'") == 1);
        const table::Compte caisse = CompteLu(Suivante, "530");
        QVERIFY(caisse.Sde.estNul() && caisse.Solde.estNul() && caisse.SoldeAnte.estNul());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012025' AND "
                                "NumCpt='2154'"),
                 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012025' AND "
                                "NumCpt IN ('400', '410', '699', '799')"),
                 4);
    }

    // Le budget de l'an prochain devient celui de l'exercice suivant ; revenu à zéro à la
    // source, la ligne garde le budget du premier transfert, réel antérieur et prévision nuls.
    void budget_reporteEtGardeLeBudgetAnterieur() {
        Livres(true);
        table::Budget b;
        QVERIFY(LireBudget(Cle, "707", b));
        b.BudFut = Euros(500);
        b.BudFutM[2] = Euros(40);
        MajBudget(Cle, "707", b);
        Transferer({Reponse::OK});
        table::Budget n;
        QVERIFY(LireBudget(Suivante, "707", n));
        QCOMPARE(n.Budget, Euros(500));
        QCOMPARE(n.BudgetM[2], Euros(40));
        QCOMPARE(n.ReelA, ArrondiMontant(b.Reel));
        QVERIFY(!n.ReelA.estNul());
        n.BudFut = Euros(77);
        MajBudget(Suivante, "707", n);

        b.Reel = Montant();
        b.BudFut = Montant();
        MajBudget(Cle, "707", b);
        ui::ViderJournalBoites();
        Transferer({Reponse::OK});
        QVERIFY(LireBudget(Suivante, "707", n));
        QCOMPARE(n.Budget, Euros(500));
        QVERIFY(n.ReelA.estNul());
        QVERIFY(n.BudFut.estNul());
    }

    // 0,40 d'écart sans décimales affichées : égaux, donc pas provisoire.
    void ecartSousLaPrecisionAffichee_egaux() {
        Livres(false);
        MajFormatMontant(0);
        Constante(Cle, [](table::Constante& k) { k.DateSaisie = "20241215"; });
        table::Compte c = CompteLu(Cle, "512");
        c.Sde += Euros(0.4);
        c.Solde += Euros(0.4);
        MajCompte(Cle, "512", c);
        QVERIFY(Transferer({Reponse::OK}));
        QCOMPARE(essai::TextesBoites(), QStringList{TexteRappel});
        QCOMPARE(Lue(Suivante).SDE1 - Lue(Suivante).SDR1, Euros(0.4));
        MajFormatMontant(2);
    }

    void equilibreAUneAutreDate_rappelSeulEcranOuvert() {
        Livres(false);
        Base().exec("INSERT INTO Section (CleCpt, NumSection, NomSection) VALUES "
                    "('012024', 4, 'Chantier')");
        Constante(Cle, [](table::Constante& k) { k.DateSaisie = "20241215"; });
        QVERIFY(Transferer({Reponse::OK}));
        QCOMPARE(essai::TextesBoites(), QStringList{TexteRappel});
        QVERIFY(Lignes("Section", "CleCpt", Suivante, "NumSection").isEmpty());
        QVERIFY(!Lue(Cle).ExerciceClos);
    }

    void definitif_sectionsEtClotureAcceptee() {
        Livres(false);
        Base().exec("INSERT INTO Section (CleCpt, NumSection, NomSection) VALUES "
                    "('012024', 4, 'Chantier')");
        QVERIFY(!Transferer({Reponse::Oui, Reponse::OK, Reponse::OK}));
        QCOMPARE(essai::TextesBoites(),
                 (QStringList{TexteDefinitif, "Votre exercice en cours est clos.", TexteRappel}));
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Question);
        QVERIFY(Lue(Cle).ExerciceClos);
        QCOMPARE(Lignes("Section", "CleCpt", Suivante, "NumSection"),
                 QStringList{"012025|4|Chantier"});
        QCOMPARE(Lue(Suivante).SDE1, Euros(1000));
        QCOMPARE(Lue(Suivante).SDR1, Euros(1000));
        ComparerTotaux();
    }

    void definitif_clotureRefusee() {
        Livres(false);
        QVERIFY(!Transferer({Reponse::Non, Reponse::OK}));
        QCOMPARE(essai::TextesBoites(), (QStringList{TexteDefinitif, TexteRappel}));
        QVERIFY(!Lue(Cle).ExerciceClos);
    }

    // L'écran avant, pendant (jauge) et après un transfert, et le message provisoire, tels
    // qu'un utilisateur les voit.
    void captures_avantPendantApresEtMessageProvisoire() {
        Livres(true);
        const QDir dossier(support::DossierCaptures());
        ecran::Cloture ecran;
        ecran.resize(560, 300);
        ecran.show();
        QVERIFY(QTest::qWaitForWindowExposed(&ecran));
        const QImage avant = ecran.grab().toImage();
        QImage pendant, message;
        connect(ecran.findChild<QProgressBar*>("Gauge1"), &QProgressBar::valueChanged, &ecran,
                [&](int v) {
                    if (v == 50) pendant = ecran.grab().toImage();
                });
        support::PiloteModal pilote;
        pilote.AttendreBoite(TexteProvisoire, [&](QWidget* boite) {
            message = boite->grab().toImage();
            support::CliquerBouton(boite, "OK");
        });
        pilote.Demarrer();
        Cliquer(ecran, "Command2");
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        ecran::Cloture apres;
        apres.resize(560, 300);
        apres.show();
        QVERIFY(QTest::qWaitForWindowExposed(&apres));
        QVERIFY(!Bouton(apres, "Command1")->isEnabled());
        const QImage image = apres.grab().toImage();
        for (const auto& [nom, img] : {std::pair{"cloture-avant.png", avant},
                                       {"cloture-pendant.png", pendant},
                                       {"cloture-apres.png", image},
                                       {"cloture-provisoire.png", message}}) {
            QVERIFY2(support::ImageDessinee(img), nom);
            QVERIFY(img.save(dossier.filePath(QString::fromLatin1(nom))));
        }
    }

    // Une passe arrêtée à chaque écriture du disque laisse l'exercice suivant comme avant ;
    // relancée, elle finit ligne pour ligne comme une passe sans arrêt.
    void passeInterrompuePuisRelancee_commeSansArret() {
        QTemporaryDir modele;
        {
            support::DossierEssai d;
            essai::OuvrirLivres(modele.path(), QStringLiteral("31/12/2024"));
            Constante(Cle, [](table::Constante& k) { k.OuvertureClos = true; });
            essai::SoldeOuverture("512", Euros(1000));
            essai::SoldeOuverture("101", Euros(1000));
            essai::Vente(Euros(100), Euros(20));
            table::Constante k = Lue(Cle);
            cloture::CreerPlanSuivant(Cle, Suivante, k);
            // Une première passe, puis de nouvelles écritures : la passe suivante a de quoi
            // changer chaque table.
            cloture::TransfererSoldes(Cle, Suivante, {});
            essai::Vente(Euros(40), Euros(8));
            FermerBase();
        }
        const auto ouvrir = [&](const QString& d) {
            for (const QString& nom :
                 {QStringLiteral("maroval.mdb"), QStringLiteral("maroval.ini")}) {
                QFile::remove(d + '/' + nom);
                QFile::copy(modele.path() + '/' + nom, d + '/' + nom);
            }
            essai::ReprendreLivres(d, QStringLiteral("31/12/2024"));
        };
        support::InstallerDisqueFautif();
        ouvrir(cadre.dossier->Chemin());
        const QStringList avant = ExerciceSuivant();
        support::RemettreDisqueAZero();
        cloture::TransfererSoldes(Cle, Suivante, {});
        const int ecritures = support::NombreAcces(support::Acces::Ecriture);
        const QStringList reference = ExerciceSuivant();
        QVERIFY(reference != avant);
        FermerBase();

        int arrets = 0;
        for (int rang = 1; rang <= ecritures; ++rang) {
            ouvrir(cadre.dossier->Chemin());
            support::RemettreDisqueAZero();
            support::ArmerPanne(support::Acces::Ecriture, rang, support::Panne::ErreurDisque, true);
            try {
                cloture::TransfererSoldes(Cle, Suivante, {});
            } catch (const std::exception&) {
                ++arrets;
            }
            try {
                FermerBase();
            } catch (...) {
            }
            support::RemettreDisqueAZero();
            essai::ReprendreLivres(cadre.dossier->Chemin(), QStringLiteral("31/12/2024"));
            const QStringList apresArret = ExerciceSuivant();
            QVERIFY2(apresArret == avant || apresArret == reference,
                     qPrintable(QString::number(rang)));
            cloture::TransfererSoldes(Cle, Suivante, {});
            QVERIFY2(ExerciceSuivant() == reference, qPrintable(QString::number(rang)));
            QVERIFY(Verification());
            FermerBase();
        }
        std::printf(
            "Transfert arrêté à chacune de ses %d écritures du disque (%d arrêts pendant la "
            "passe), puis relancé\n",
            ecritures, arrets);
        QVERIFY(arrets > 0);
        essai::ReprendreLivres(cadre.dossier->Chemin());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestClotureTransfert test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_cloture_transfert.moc"
