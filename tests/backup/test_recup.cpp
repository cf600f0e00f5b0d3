// Reprise après un arrêt pendant une écriture : décision du démarrage sur le marqueur,
// écran Recup (textes, reprise automatique, restauration, case de fermeture refusée).

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"
#include "support/PiloteModal.h"
#include "support/Recalcul.h"

#include "backup/Recup.h"
#include "companies/Demarrage.h"
#include "posting/Securite.h"
#include "posting/Verification.h"
#include "session/FichierProfil.h"
#include "ui/Application.h"
#include "ui/Boite.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace essai;
using namespace support;

namespace {

struct Arret {};

const QString kIncoherence =
    QStringLiteral("Maroval a détecté une incohérence dans votre comptabilité , faites une "
                   "restauration à partir d'une sauvegarde antérieure");

} // namespace

class TestRecup : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;
    QStringList avant;

    QString Marqueur() { return FichierProfil(CheminIni()).Lire("Securite", "Erreur", "?"); }
    int Images() {
        return Compter("SELECT (SELECT count(*) FROM Compte WHERE CleCpt='000000') + "
                       "(SELECT count(*) FROM Budget WHERE CleCpt='000000') + "
                       "(SELECT count(*) FROM Constante WHERE CleCon='000000')");
    }

    // Une vente interrompue juste avant la n-ième écriture du marqueur ; puis le programme
    // repart de zéro (base fermée et rouverte).
    void VenteInterrompue(int ecritureMarqueur, const char* compteVente = "707") {
        ViderSaisie();
        Saisir("411001", "D", Euros(1200));
        Saisir(compteVente, "C", Euros(1000));
        Saisir("44571", "C", Euros(200));
        avant = Vidage();
        int appel = 0;
        FichierProfil::AvantEcriture = [&] {
            if (++appel == ecritureMarqueur) throw Arret{};
        };
        QVERIFY_THROWS_EXCEPTION(Arret, Passer());
        FichierProfil::AvantEcriture = nullptr;
        FermerBase();
        ReprendreLivres(dossier->Chemin());
    }

    void MontrerRecupPourDeVrai() {
        ecransDemarrage().MontrerRecup = EcransParDefaut().MontrerRecup;
        QVERIFY(ecransDemarrage().MontrerRecup);
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        OuvrirLivres(dossier->Chemin());
        Vente(Euros(10), Euros(2));
    }
    void cleanup() {
        FichierProfil::AvantEcriture = nullptr;
        ecransDemarrage() = EcransParDefaut();
        ecran::Recup::MontrerBackup() = nullptr;
        session().SauvegardeAutorisee = true;
        FermerBase();
        dossier.reset();
    }

    void ecranTitreTextesEtBoutons() {
        ecran::Recup r;
        QCOMPARE(r.objectName(), QStringLiteral("Recup"));
        QCOMPARE(r.windowTitle(), QStringLiteral("ATTENTION"));
        QCOMPARE(r.findChild<QPushButton*>("BRecup")->text(),
                 QStringLiteral("Récupération automatique"));
        QCOMPARE(r.findChild<QPushButton*>("BResto")->text(), QStringLiteral("Restauration"));
        QStringList textes;
        for (QLabel* l : r.findChildren<QLabel*>())
            textes << l->text();
        for (const char* t :
             {"Votre dernière session Maroval s'est terminee anormalement pendant "
              "l'enregistrement de votre derniere ecriture.",
              "Vous pouvez :",
              "Laisser Maroval restituer votre comptabilité dans l'état où elle se trouvait "
              "avant la saisie de votre dernière écriture.",
              "Faire une restauration de votre comptabilité",
              "Dans tous les cas de figure, vous perdez l'écriture sur laquelle vous étiez en "
              "train de travailler lors de l'arrêt brutal de Maroval."})
            QVERIFY2(textes.contains(QString::fromUtf8(t)), t);
        bool cadre = false;
        for (QGroupBox* g : r.findChildren<QGroupBox*>())
            cadre = cadre || g->title() == QLatin1String("IMPORTANT");
        QVERIFY(cadre);
    }

    void chargementOuvreLExerciceNommeParLeMarqueur() {
        FichierProfil ini(CheminIni());
        QVERIFY(ini.Ecrire("Securite", "CleCpt", " 012024 "));
        QVERIFY(ini.Ecrire("Securite", "Dernum", "17"));
        session().NumSocCourante = 3;
        session().ExerciceCourant = 2023;
        session().NomSocCourante = "Autre";
        ecran::Recup r;
        QCOMPARE(r.CleRecup(), Cle);
        QCOMPARE(r.DerNumRecup(), 17.0);
        QCOMPARE(session().NumSocCourante, std::int16_t(1));
        QCOMPARE(session().ExerciceCourant, std::int16_t(2024));
        QCOMPARE(session().NomSocCourante, QStringLiteral("Essais Dupont & Fils"));
    }

    void marqueur1AvecImagesMessageImagesPurgeesConstanteIntacte() {
        VenteInterrompue(2);
        QCOMPARE(Marqueur(), QStringLiteral("1"));
        QVERIFY(Images() > 0);
        ui::RepondreBoite(ui::Reponse::OK);
        DeciderMarqueur();
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].texte, MessageMarqueur1);
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Exclamation);
        QCOMPARE(Images(), 0);
        QCOMPARE(Vidage(), avant);
        QCOMPARE(Marqueur(), QStringLiteral("0"));
    }

    void marqueur2ApresToutesLesLignesRetireesEtTotauxRendus() {
        VenteInterrompue(3);
        QCOMPARE(Marqueur(), QStringLiteral("2"));
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 6);
        MontrerRecupPourDeVrai();
        PiloteModal pilote;
        pilote.Attendre("Recup", Cliquer("BRecup")).AttendreBoite(RecuperationReussie, "OK");
        pilote.Demarrer();
        DeciderMarqueur();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(Vidage(), avant);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        QCOMPARE(Images(), 0);
        QCOMPARE(Marqueur(), QStringLiteral("0"));
        QVERIFY(Verification());
        QVERIFY(session().SauvegardeAutorisee);
    }

    void marqueur2SansLigneEcriteRienASupprimer() {
        VenteInterrompue(2);
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "2"));
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        ui::RepondreBoite(ui::Reponse::OK);
        ecransDemarrage().MontrerRecup = [] {
            ecran::Recup r;
            r.BRecup_Click();
        };
        DeciderMarqueur();
        QCOMPARE(ui::JournalBoites().last().texte, RecuperationReussie);
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);
        // Les lignes d'avant le numéro du marqueur restent.
        QCOMPARE(Vidage(), avant);
        QVERIFY(Verification());
    }

    void marqueur2LivresFauxSeuleLaRestaurationFaitSortir() {
        CompteSansBudget("706", "Prestations");
        VenteInterrompue(3, "706");
        MontrerRecupPourDeVrai();
        bool sauvegardeInterditePendant = false;
        ecran::Recup::MontrerBackup() = [&] {
            sauvegardeInterditePendant = !session().SauvegardeAutorisee;
            // Une sauvegarde d'avant l'écriture revient : le budget fait par elle disparaît.
            Executer("DELETE FROM Budget WHERE NumBud='706'");
        };
        PiloteModal pilote;
        pilote.Attendre("Recup", Cliquer("BRecup"))
            .AttendreBoite(RecuperationImpossible, "OK")
            .Attendre("Recup", Cliquer("BResto"));
        pilote.Demarrer();
        DeciderMarqueur();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(sauvegardeInterditePendant);
        QVERIFY(session().SauvegardeAutorisee);
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);
        QVERIFY(Verification());
        QCOMPARE(Marqueur(), QStringLiteral("0"));
    }

    void restaurationQuiLaisseDesLivresFauxResteSurLEcran() {
        CompteSansBudget("706", "Prestations");
        VenteInterrompue(3, "706");
        MontrerRecupPourDeVrai();
        int restaurations = 0;
        ecran::Recup::MontrerBackup() = [&] {
            // La première restauration ne répare rien ; la seconde, si.
            if (++restaurations == 2) Executer("DELETE FROM Budget WHERE NumBud='706'");
        };
        bool resteOuvert = false;
        PiloteModal pilote;
        pilote.Attendre("Recup", Cliquer("BRecup"))
            .AttendreBoite(RecuperationImpossible, "OK")
            .Attendre("Recup", Cliquer("BResto"))
            .AttendreBoite(kIncoherence, "OK")
            .Attendre("Recup", [&](QWidget* w) {
                resteOuvert = w->isVisible() && !session().SauvegardeAutorisee;
                CliquerBouton(w, "BResto");
            });
        pilote.Demarrer();
        DeciderMarqueur();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(resteOuvert);
        QCOMPARE(restaurations, 2);
        const auto& j = ui::JournalBoites();
        bool critique = false;
        for (const auto& e : j)
            critique = critique || (e.texte == kIncoherence && e.icone == ui::Icone::Critique);
        QVERIFY(critique);
        QVERIFY(session().SauvegardeAutorisee);
    }

    void restaurationOuvreLEcranDeSauvegarde() {
        VenteInterrompue(2);
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "2"));
        MontrerRecupPourDeVrai();
        bool sauvegardeInterditePendant = false, recupCache = false;
        PiloteModal pilote;
        pilote.Attendre("Recup", Cliquer("BResto")).Attendre("Backup", [&](QWidget* w) {
            sauvegardeInterditePendant = !session().SauvegardeAutorisee;
            for (QWidget* haut : QApplication::topLevelWidgets())
                if (haut->objectName() == QLatin1String("Recup")) recupCache = !haut->isVisible();
            CliquerBouton(w, "Command3");
        });
        pilote.Demarrer();
        DeciderMarqueur();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(sauvegardeInterditePendant);
        QVERIFY(recupCache);
        // Abandon de la restauration : les livres sont justes, l'écran se ferme.
        QVERIFY(session().SauvegardeAutorisee);
        QCOMPARE(Marqueur(), QStringLiteral("0"));
    }

    void caseDeFermetureEtEchapRefusees() {
        VenteInterrompue(2);
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "2"));
        MontrerRecupPourDeVrai();
        bool resteApresFermer = false, resteApresEchap = false;
        PiloteModal pilote;
        pilote
            .Attendre("Recup",
                      [&](QWidget* w) {
                          w->close();
                          resteApresFermer = w->isVisible();
                          QTest::keyClick(w, Qt::Key_Escape);
                          resteApresEchap = w->isVisible();
                          CliquerBouton(w, "BRecup");
                      })
            .AttendreBoite(RecuperationReussie, "OK");
        pilote.Demarrer();
        DeciderMarqueur();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(resteApresFermer);
        QVERIFY(resteApresEchap);
        QCOMPARE(Vidage(), avant);
    }

    void marqueurZeroPurgeLesImagesRestees() {
        VenteInterrompue(2);
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "0"));
        DeciderMarqueur();
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Images(), 0);
        QCOMPARE(Vidage(), avant);
    }

    void marqueurDUneAutreValeurRienNeSePasse() {
        VenteInterrompue(2);
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Securite", "Erreur", "3"));
        const int images = Images();
        DeciderMarqueur();
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Images(), images);
        QCOMPARE(Marqueur(), QStringLiteral("3"));
    }

    void repriseRefaiteSansImagesNeDetruitRien() {
        VenteInterrompue(3);
        RestituerImages(Cle, 4);
        QCOMPARE(Vidage(), avant);
        // Plus d'image : la seconde reprise garde la constante et les comptes.
        RestituerImages(Cle, 4);
        QCOMPARE(Vidage(), avant);
        QVERIFY(Verification());
    }

    void memeCompteDeuxFoisLaSecondeImageRemplaceLaPremiere() {
        ViderSaisie();
        Saisir("512", "D", Euros(50));
        Saisir("512", "D", Euros(70));
        Saisir("707", "C", Euros(120));
        avant = Vidage();
        int appel = 0;
        FichierProfil::AvantEcriture = [&] {
            if (++appel == 3) throw Arret{};
        };
        QVERIFY_THROWS_EXCEPTION(Arret, Passer());
        FichierProfil::AvantEcriture = nullptr;
        RestituerImages(Cle, 4);
        QCOMPARE(Compter("SELECT count(*) FROM Compte WHERE NumCpt='512'"), 1);
        QCOMPARE(Vidage(), avant);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestRecup t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_recup.moc"
