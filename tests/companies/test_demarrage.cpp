// Démarrage : dossiers, configuration par défaut, base, marqueur d'arrêt brutal, ordre
// des écrans, seconde instance, symbole décimal.

#include "support/DossierEssai.h"
#include "support/Outils.h"
#include "support/ProcessusFils.h"
#include "support/SessionEssai.h"
#include "support/TextesReprise.h"

#include "base/Reglages.h"
#include "chart/DonneesPlan.h"
#include "companies/Demarrage.h"
#include "posting/Securite.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QLockFile>
#include <QtTest>

namespace {

void PoserImages() {
    Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('000000', '512')");
    Base().exec("INSERT INTO Budget (CleCpt, NumBud) VALUES ('000000', '607')");
    Base().exec("INSERT INTO Constante (CleCon) VALUES ('000000')");
}

} // namespace

class TestDemarrage : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    QStringList ordre;

    void BrancherEcrans() {
        ordre.clear();
        auto& e = ecransDemarrage();
        e.MontrerGeneral = [this] { ordre << "General"; };
        e.MontrerRecup = [this] { ordre << "Recup"; };
        e.MontrerSociete = [this] { ordre << "Societe"; };
    }

    // Prépare un dossier dont la base et la configuration existent déjà.
    void PreparerDossier(const QString& erreur) {
        OuvrirBase(dossier->Chemin());
        PoserImages();
        FermerBase();
        essai::CopierIniLivre(dossier->Chemin());
        QVERIFY(
            FichierProfil(dossier->Fichier("maroval.ini")).Ecrire("Securite", "Erreur", erreur));
    }

    QString Marqueur() {
        return FichierProfil(dossier->Fichier("maroval.ini")).Lire("Securite", "Erreur", "?");
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        EcrireReglage("intl", "sDecimal", ",");
        BrancherEcrans();
    }
    void cleanup() {
        FermerBase();
        LibererDossierDonnees();
        ecransDemarrage() = EcransParDefaut();
        dossier.reset();
    }

    void premierDemarrage_dossierVideRecoitBaseEtConfiguration() {
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY(QFile::exists(dossier->Fichier("maroval.mdb")));
        QVERIFY(QFile::exists(dossier->Fichier("maroval.ini")));
        QCOMPARE(session().DossierDonnees, dossier->Chemin());
        QCOMPARE(Marqueur(), QStringLiteral("0"));
        QCOMPARE(ordre, (QStringList{"General", "Societe"}));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void dossierAbsent_estCree() {
        const QString sous = dossier->Fichier("sous/dossier");
        qputenv("MAROVAL_DONNEES", QFile::encodeName(sous));
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY(QFile::exists(sous + "/maroval.mdb"));
    }

    void demarrage_retientLeDossierDuProgrammeEtLesNomsDesMois() {
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(LireReglage("Maroval", "Path"), QCoreApplication::applicationDirPath());
        QCOMPARE(session().DossierProgramme, QCoreApplication::applicationDirPath());
        QCOMPARE(session().NomsMois.size(), 12);
        QCOMPARE(session().NomsMois.at(1), QStringLiteral("Février"));
        QCOMPARE(session().NomsMois.at(7), QStringLiteral("Août"));
        QCOMPARE(session().NomsMois.at(11), QStringLiteral("Décembre"));
        QCOMPARE(session().TauxConversion, 1.0);
    }

    void demarrage_videJourCent() {
        OuvrirBase(dossier->Chemin());
        Base().exec("INSERT INTO JourCent (Numero, Journal) VALUES (1, 'Journal des Ventes')");
        FermerBase();
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(essai::Compter("SELECT count(*) FROM JourCent"), 0);
    }

    void configurationAbsente_donneToutesLesValeursParDefaut() {
        session().DossierDonnees = dossier->Chemin();
        session().SymboleMonnaie = "X";
        session().ModeDebug = true;
        QVERIFY(!QFile::exists(dossier->Fichier("maroval.ini")));
        LireConfiguration();
        QCOMPARE(session().SymboleMonnaie, QStringLiteral("E"));
        QVERIFY(!session().ModeDebug);
        QCOMPARE(session().Decimales, QStringLiteral("0.00"));
        QCOMPARE(session().FormatMontant, QStringLiteral("### ### ### ##0.00 E"));
        QCOMPARE(session().TauxConversion, 1.0);
    }

    // maroval.ini retiré après le premier démarrage : chaque lecture du programme prend sa
    // valeur par défaut, sans recréer le fichier.
    void configurationRetireeApresDemarrage_defautsDuProgramme() {
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY(QFile::remove(dossier->Fichier("maroval.ini")));
        PoserImages();
        session().SymboleMonnaie = "X";
        session().ModeDebug = true;
        MajFormatMontant(4);

        LireConfiguration();
        QCOMPARE(session().SymboleMonnaie, QStringLiteral("E")); // SymbEu
        QCOMPARE(session().Decimales, QStringLiteral("0.00"));   // NbDecimales
        QCOMPARE(session().FormatMontant, QStringLiteral("### ### ### ##0.00 E"));
        QVERIFY(!session().ModeDebug); // Debug
        ordre.clear();
        DeciderMarqueur(); // Erreur : "0"
        QVERIFY(ordre.isEmpty());
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Constante WHERE CleCon='000000'"), 0);
        const MarqueurLu m = LireMarqueur();
        QCOMPARE(m.cle, QString());                            // CleCpt
        QCOMPARE(m.derNum, 0.0);                               // Dernum
        QCOMPARE(plan::PlanRetenu(1), QStringLiteral("0000")); // PlanChoisi
        QVERIFY(!QFile::exists(dossier->Fichier("maroval.ini")));
    }

    void nbDecimalesZeroOuNegatif_donneZero() {
        session().DossierDonnees = dossier->Chemin();
        FichierProfil ini(CheminIni());
        QVERIFY(ini.Ecrire("Options", "NbDecimales", "0"));
        QVERIFY(ini.Ecrire("Options", "SymbEu", "€"));
        LireConfiguration();
        QCOMPARE(session().Decimales, QStringLiteral("0"));
        QCOMPARE(session().FormatMontant, QStringLiteral("### ### ### ##0 €"));
        QVERIFY(ini.Ecrire("Options", "NbDecimales", "-3"));
        LireConfiguration();
        QCOMPARE(session().Decimales, QStringLiteral("0"));
        QVERIFY(ini.Ecrire("Options", "NbDecimales", "3"));
        QVERIFY(ini.Ecrire("Controle", "Debug", "1"));
        LireConfiguration();
        QCOMPARE(session().Decimales, QStringLiteral("0.000"));
        QVERIFY(session().ModeDebug);
    }

    void moisDebutExercice_caracteresSixEtSept() {
        QCOMPARE(int(CalculMoisDebutExercice("20240101")), 10);
        QCOMPARE(int(CalculMoisDebutExercice("20240701")), 70);
        QCOMPARE(int(CalculMoisDebutExercice("20241015")), 1);
        QCOMPARE(int(CalculMoisDebutExercice("20240930")), 93);
    }

    void nomMoisHorsListe_estUneErreurDExecution() {
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(NomMois(1), QStringLiteral("Janvier"));
        QCOMPARE(NomMois(12), QStringLiteral("Décembre"));
        QVERIFY_THROWS_EXCEPTION(ErreurExecution, NomMois(13));
        QVERIFY_THROWS_EXCEPTION(ErreurExecution, NomMois(0));
        // Jetée depuis un événement, elle donne la boîte et une fin propre.
        ui::RepondreBoite(ui::Reponse::OK);
        QTimer::singleShot(0, [] { NomMois(22); });
        QTRY_VERIFY(ui::FinDemandee());
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Erreur d'exécution"));
    }

    void marqueurZero_purgeLesImages() {
        PreparerDossier("0");
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Budget WHERE CleCpt='000000'"), 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Constante WHERE CleCon='000000'"), 0);
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void marqueurUn_messagePuisZeroPuisPurge() {
        PreparerDossier("1");
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites().first().texte, essai::MessageMarqueur1);
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Exclamation);
        QCOMPARE(Marqueur(), QStringLiteral("0"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Constante WHERE CleCon='000000'"), 0);
        QCOMPARE(ordre, (QStringList{"General", "Societe"}));
    }

    void marqueurDeux_ecranDeRepriseSansPurge() {
        PreparerDossier("2");
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(ordre, (QStringList{"General", "Recup", "Societe"}));
        QCOMPARE(Marqueur(), QStringLiteral("0"));
        // La reprise consomme elle-même les images : pas de purge ici.
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 1);
    }

    void marqueurAutreValeur_niMessageNiPurge() {
        PreparerDossier("7");
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Marqueur(), QStringLiteral("7"));
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'"), 1);
        QCOMPARE(ordre, (QStringList{"General", "Societe"}));
    }

    void purgerCleTemporaire_retireLesTroisSortesDImages() {
        OuvrirBase(dossier->Chemin());
        PoserImages();
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012024', '512')");
        PurgerCleTemporaire();
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte"), 1);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Budget"), 0);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Constante"), 0);
    }

    void secondeInstance_refuseeSansRienEcrire() {
        // Un autre Maroval tient déjà le dossier.
        QLockFile autre(dossier->Fichier("maroval.lck"));
        QVERIFY(autre.tryLock(0));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!Demarrage({"maroval"}));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QVERIFY(ui::JournalBoites().first().texte.startsWith(
            QStringLiteral("Maroval est déjà ouvert sur ces données.")));
        QVERIFY(!BaseOuverte());
        QVERIFY(!QFile::exists(dossier->Fichier("maroval.mdb")));
        QVERIFY(!QFile::exists(dossier->Fichier("maroval.ini")));
        QVERIFY(ordre.isEmpty());
    }

    void symboleDecimalPoint_ouiEcritLaVirguleEtFinit() {
        EcrireReglage("intl", "sDecimal", ".");
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!Demarrage({"maroval"}));
        QCOMPARE(LireReglage("intl", "sDecimal"), QStringLiteral(","));
        QCOMPARE(ui::JournalBoites().size(), 2);
        QCOMPARE(ui::JournalBoites().at(0).titre, QStringLiteral("Attention"));
        QVERIFY(ui::JournalBoites().at(0).texte.contains(QStringLiteral(
            "Maroval peut remplacer votre symbole décimal actuel (.) par une virgule.")));
        QVERIFY(ui::JournalBoites().at(1).texte.startsWith(
            QStringLiteral("Votre PC doit être redémarré")));
        QVERIFY(ordre.isEmpty());
    }

    void symboleDecimalPoint_nonExpliqueEtContinue() {
        EcrireReglage("intl", "sDecimal", ".");
        ui::RepondreBoite(ui::Reponse::Non);
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(Demarrage({"maroval"}));
        QCOMPARE(ui::JournalBoites().size(), 2);
        QVERIFY(ui::JournalBoites().at(1).texte.startsWith(
            QStringLiteral("Pour modifier votre symbole décimal :")));
        QCOMPARE(ordre, (QStringList{"General", "Societe"}));
    }

    void symboleDecimalVirguleOuZero_aucuneQuestion() {
        EcrireReglage("intl", "sDecimal", "0");
        QVERIFY(ControleSymboleDecimal());
        EcrireReglage("intl", "sDecimal", ",");
        QVERIFY(ControleSymboleDecimal());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void symboleDecimalAbsent_aucuneQuestion() {
        EffacerReglage("intl");
        QVERIFY(ControleSymboleDecimal());
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    // Lancé seul dans un processus fils en langue C : aucun réglage, aucune question.
    void enfantPremierDemarrageEnLangueC() {
        if (!support::EstProcessusFils()) QSKIP("exécuté seulement comme processus fils");
        EffacerReglage("intl");
        const bool suite = Demarrage({"maroval"});
        std::printf("point décimal du système : %s\n",
                    qPrintable(QString(QLocale::system().decimalPoint())));
        std::printf("suite=%d ordre=%s boites=%d\n", suite, qPrintable(ordre.join(',')),
                    static_cast<int>(ui::JournalBoites().size()));
    }

    void premierDemarrageEnLangueC_leChoixDeLaSocieteVientDAbord() {
        const QByteArray lang = qgetenv("LANG"), lcAll = qgetenv("LC_ALL");
        qputenv("LANG", "C.UTF-8");
        qputenv("LC_ALL", "C.UTF-8");
        const support::ResultatFils fils =
            support::LancerFonctionEnFils("enfantPremierDemarrageEnLangueC");
        qputenv("LANG", lang);
        qputenv("LC_ALL", lcAll);
        QVERIFY(fils.termine && !fils.plante);
        QVERIFY2(fils.sortie.contains("point décimal du système : ."), qPrintable(fils.sortie));
        QVERIFY2(fils.sortie.contains("suite=1 ordre=General,Societe boites=0"),
                 qPrintable(fils.sortie));
    }

    void ligneDeCommande_retenueDansLaSession() {
        QVERIFY(Demarrage({"maroval", "/tmp/maroval31-12-2024-09h05.SAV"}));
        QCOMPARE(session().LigneCommande, QStringLiteral("/tmp/maroval31-12-2024-09h05.SAV"));
    }

    void planSuffisant_compteLesComptesDeLExercice() {
        QVERIFY(Demarrage({"maroval"}));
        session().NumSocCourante = 1;
        session().ExerciceCourant = 2024;
        QCOMPARE(PlanSuffisant(), 0);
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012024', '512')");
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012024', '530')");
        Base().exec("INSERT INTO Compte (CleCpt, NumCpt) VALUES ('012025', '530')");
        QCOMPARE(PlanSuffisant(), 2);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestDemarrage t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_demarrage.moc"
