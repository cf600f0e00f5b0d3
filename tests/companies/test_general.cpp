// Ecran principal : barre d'outils, menus, libellés, barre d'état, et les portes qui
// retiennent une fonction tant que le plan comptable ou les saisies ne la permettent pas.

#include "Essai.h"

#include "companies/General.h"
#include "companies/Options.h"
#include "ui/Application.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

using namespace support;

namespace {

const QString kPlanInsuffisant = QStringLiteral(
    "Votre plan comptable n'est pas suffisant pour tenir votre comptabilité.\n"
    "Utilisez le choix Plan et n'hésitez pas à prendre la totalité du Plan Type correspondant à "
    "votre situation.\n"
    "Vous pourrez ensuite supprimer les comptes dont vous n'aurez jamais besoin et\n"
    "grâce au bouton Créer un nouveau compte, ajouter les comptes utiles pour votre gestion\n"
    "sans oublier les comptes nominatifs de vos clients et fournisseurs.");

const QString kExerciceClos =
    QStringLiteral("Vous avez fait un transfert définitif et clos l'exercice en cours. \n"
                   "Etes-vous certain de vouloir ouvrir cet exercice à nouveau ?");

} // namespace

class TestGeneral : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;
    ecran::General* general = nullptr;
    int numSoc = 0;

    QString Cle() const { return CleExercice(numSoc, 2024); }

    void Comptes(int nombre) {
        Base().exec("DELETE FROM Compte");
        essai::AjouterComptes(Cle(), nombre);
    }

    // Un clic sur le bouton de la barre d'outils, comme l'utilisateur.
    void Bouton(const QString& cle) {
        auto* bouton = general->findChild<QToolBar*>("Toolbar2")->findChild<QToolButton*>(cle);
        QVERIFY2(bouton, qPrintable(cle));
        QTest::mouseClick(bouton, Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    }

    // Une entrée de menu choisie : l'action part de la boucle d'événements, comme un clic.
    void Entree(const QString& cle) {
        QAction* action = general->Action(cle);
        QVERIFY2(action, qPrintable(cle));
        QMetaObject::invokeMethod(action, &QAction::trigger, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        essai::OuvrirEssai(*dossier);
        essai::ReleverToutesOuvertures();
        ui::FixerHorloge(QDateTime(QDate(2024, 3, 12), QTime(9, 5)));
        numSoc = essai::Societe(QStringLiteral("Boulangerie Martin"));
        essai::AjouterAnnee(numSoc, 2024, "20240315");
        Session& s = session();
        s.NumSocCourante = static_cast<std::int16_t>(numSoc);
        s.ExerciceCourant = 2024;
        s.DateSaisieCourante = QStringLiteral("15/03/2024");
        ecran::MontrerGeneral();
        general = ecran::General::Instance();
    }
    void cleanup() {
        ecran::FermerGeneral();
        ecran::FixerReleve({});
        FermerBase();
        dossier.reset();
    }

    void structure_titreBarreDOutilsEtLibelles() {
        QCOMPARE(general->objectName(), QStringLiteral("General"));
        QCOMPARE(general->windowTitle(), QStringLiteral("MAROVAL"));
        auto* barre = general->findChild<QToolBar*>("Toolbar2");
        QVERIFY(barre);
        QStringList cles;
        for (QAction* a : barre->actions()) {
            cles << a->objectName();
            QCOMPARE(barre->widgetForAction(a)->objectName(), a->objectName());
        }
        QCOMPARE(cles,
                 QStringList({"Quitter", "Plan", "Saisie", "Consult", "Edition", "Rappr", "Cloture",
                              "Sauver", "Analyt", "Budget", "Tresorerie", "Aide", "Apropos"}));
        const QList<std::pair<QString, QStringList>> deroulants = {
            {"Saisie", {"SaisDC", "Saislog", "Annul", "ModifLibel"}},
            {"Consult", {"Journaux", "Balances", "Resultat", "Bilan", "Consultcpt", "Graphiques"}},
            {"Budget", {"Budget01", "Budget02", "Budget03", "Budget04"}},
            {"Tresorerie", {"Choix1", "Choix2", "Choix3", "Choix4", "Choix5"}}};
        for (const auto& [cle, entrees] : deroulants) {
            QStringList vues;
            for (QAction* a : general->Action(cle)->menu()->actions())
                vues << a->objectName();
            QCOMPARE(vues, entrees);
        }
        for (const auto& [nom, texte] :
             QList<std::pair<const char*, const char*>>{{"Label1", "Société :"},
                                                        {"Label2", "Exercice :"},
                                                        {"TitreExo", "EXERCICE EN COURS :"},
                                                        {"Label4", "Date Saisie :"}})
            QCOMPARE(general->Libelle(nom), QString::fromUtf8(texte));
        QVERIFY(general->findChild<QStatusBar*>("StatusBar1"));
    }

    void structure_menusEtLeursEntrees() {
        const QList<std::pair<QString, QString>> menus = {
            {"MSociete", "&Société"},
            {"MPlan", "&Plan Comptable"},
            {"Sauvegarde", "&Sauvegardes && Restauration"},
            {"mnu_maroval_precedent", "Maroval Précédent"},
            {"SMFiscalite", "&Fiscalité"},
            {"SMOptions", "&Options"},
            {"MAide", "&Aide"}};
        for (const auto& [nom, titre] : menus) {
            auto* menu = general->findChild<QMenu*>(nom);
            QVERIFY2(menu, qPrintable(nom));
            QCOMPARE(menu->title(), titre);
        }
        const QList<std::pair<QString, QString>> entrees = {
            {"SocGerer", "&Gérer"},
            {"SocQuit", "&Quitter Maroval"},
            {"SMCreer", "Gestion du Plan Comptable"},
            {"SMSauve", "&Sauvegarde"},
            {"SMAncienne", "Sauvegardes &Ancien Maroval"},
            {"SMRestaure", "&Restauration complète ancien Maroval"},
            {"SMBalFisc", "Création de la balance fiscale"},
            {"SMSymbMon", "Options"},
            {"SMIndex", "Index de l'aide"},
            {"SMPropos", "A propos"}};
        for (const auto& [cle, texte] : entrees)
            QCOMPARE(general->Action(cle)->text(), texte);
        QVERIFY(general->findChild<QMenu*>("mnu_maroval_precedent")
                    ->actions()
                    .contains(general->Action("SMRestaure")));
    }

    void barreDEtat_dateEtHeureDeLHorloge() {
        QCOMPARE(general->findChild<QLabel*>("Panel1")->text(),
                 QStringLiteral("mardi 12 mars 2024"));
        QCOMPARE(general->findChild<QLabel*>("Panel2")->text(), QStringLiteral("09:05"));
    }

    void plan2Comptes_saisieRefusee_3Acceptee() {
        Comptes(2);
        ui::RepondreBoite(ui::Reponse::OK);
        Bouton("Saisie");
        QCOMPARE(essai::TextesBoites(), QStringList({kPlanInsuffisant}));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Information);
        QVERIFY(essai::EcransOuverts().isEmpty());
        Comptes(3);
        Bouton("Saisie");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Choisais"}));
        QCOMPARE(ui::JournalBoites().size(), 1);
    }

    void plan9Comptes_consultationRefusee_10Acceptee() {
        Comptes(9);
        ui::RepondreBoite(ui::Reponse::OK);
        Bouton("Consult");
        QCOMPARE(essai::TextesBoites(), QStringList({kPlanInsuffisant}));
        QVERIFY(essai::EcransOuverts().isEmpty());
        Comptes(10);
        Bouton("Consult");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Consult"}));
    }

    void deroulantsSaisieEtConsultation_gardentLeurPorte() {
        Comptes(2);
        ui::RepondreBoite(ui::Reponse::OK);
        Entree("SaisDC");
        Comptes(9);
        ui::RepondreBoite(ui::Reponse::OK);
        Entree("Journaux");
        QCOMPARE(ui::JournalBoites().size(), 2);
        QVERIFY(essai::EcransOuverts().isEmpty());
        Comptes(10);
        for (const char* cle : {"SaisDC", "Saislog", "Annul", "ModifLibel", "Journaux", "Balances",
                                "Resultat", "Bilan", "Consultcpt", "Graphiques"})
            Entree(cle);
        QCOMPARE(essai::EcransOuverts(),
                 QStringList({"SaisDC", "Saislog", "Annul", "ModifLib", "Journal", "Balance",
                              "Resultat", "Consult", "ConsCpt", "BilGraph"}));
        QCOMPARE(ui::JournalBoites().size(), 2);
    }

    void deroulantsBudgetEtTresorerie_sansPorteMemeSansCompte() {
        for (const char* cle : {"Budget01", "Budget02", "Budget03", "Budget04", "Choix1", "Choix2",
                                "Choix3", "Choix4", "Choix5"})
            Entree(cle);
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::EcransOuverts(),
                 QStringList({"Budget00", "Budget00", "budget03", "Budget04", "Tresor01",
                              "Tresor02", "Tresor03", "Tresor04", "Tresor05"}));
    }

    void boutonsRapprochementAnalytiqueBudget_demandent10Comptes() {
        Comptes(9);
        for (const char* cle : {"Rappr", "Analyt", "Budget", "Edition", "Tresorerie", "Cloture"}) {
            ui::RepondreBoite(ui::Reponse::OK);
            Bouton(cle);
        }
        QCOMPARE(essai::TextesBoites(), QStringList(6, kPlanInsuffisant));
        QVERIFY(essai::EcransOuverts().isEmpty());
        Comptes(10);
        for (const char* cle : {"Rappr", "Analyt", "Budget"})
            Bouton(cle);
        QCOMPARE(essai::EcransOuverts(), QStringList({"Rappr", "Analy0", "Budget00"}));
    }

    void edition_sansEcriture_refusee_avecEcrituresOuverte() {
        Comptes(10);
        ui::RepondreBoite(ui::Reponse::OK);
        Bouton("Edition");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Vous ne pouvez accéder à cette fonction pour l'instant car...\n"
                              "...Vous n'avez pas encore saisi d'écritures !"}));
        QVERIFY(essai::EcransOuverts().isEmpty());
        Base().exec("UPDATE Constante SET LastNumEcrit=4");
        Bouton("Edition");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Editions"}));
    }

    void saisie_exerciceClos_nonArrete_ouiOuvreEtGardeLeDrapeau() {
        Comptes(3);
        Base().exec("UPDATE Constante SET ExerciceClos=1");
        ui::RepondreBoite(ui::Reponse::Non);
        Bouton("Saisie");
        QCOMPARE(essai::TextesBoites(), QStringList({kExerciceClos}));
        QCOMPARE(ui::JournalBoites()[0].boutons, ui::Boutons::OuiNon);
        QVERIFY(essai::EcransOuverts().isEmpty());
        ui::RepondreBoite(ui::Reponse::Oui);
        Entree("Saislog");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Saislog"}));
        QVERIFY(essai::Constante(Cle()).ExerciceClos);
    }

    void saisie_exerciceClosEtPlanCourt_laQuestionPuisLePlan() {
        Comptes(2);
        Base().exec("UPDATE Constante SET ExerciceClos=1");
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::OK);
        Bouton("Saisie");
        QCOMPARE(essai::TextesBoites(), QStringList({kExerciceClos, kPlanInsuffisant}));
        QVERIFY(essai::EcransOuverts().isEmpty());
    }

    void cloture_exerciceClos_questionNonArrete() {
        Comptes(10);
        Base().exec("UPDATE Constante SET ExerciceClos=1");
        ui::RepondreBoite(ui::Reponse::Non);
        Bouton("Cloture");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Vous avez déjà réalisé un transfert définitif et clos l'exercice "
                              "en cours,\nVérifiez si un nouveau transfert est définitif.\n"
                              "Etes-vous certain de vouloir faire un nouveau transfert ?"}));
        QVERIFY(essai::EcransOuverts().isEmpty());
    }

    void cloture_horsDuDernierMois_question() {
        Comptes(10);
        ui::RepondreBoite(ui::Reponse::Non);
        Bouton("Cloture");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Vous n'êtes pas en fin d'exercice,\nVoulez-vous continuer ?"}));
        QVERIFY(essai::EcransOuverts().isEmpty());
        ui::RepondreBoite(ui::Reponse::Oui);
        Bouton("Cloture");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Cloture"}));
    }

    void cloture_dansLeDernierMois_vaDirectement() {
        Comptes(10);
        session().DateSaisieCourante = QStringLiteral("02/12/2024");
        Bouton("Cloture");
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::EcransOuverts(), QStringList({"Cloture"}));
    }

    void tresorerie_sansExercicePrecedent_ouvreLeMenu() {
        Comptes(10);
        Bouton("Tresorerie");
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::EcransOuverts(), QStringList({"Tresor00"}));
    }

    void tresorerie_soldesDeDebutEcartes_avertit() {
        Comptes(10);
        essai::AjouterAnnee(numSoc, 2023);
        // Fournisseurs repris à l'identique, clients avec 10,01 d'écart.
        for (const auto& [cle, numero, sde, solde] :
             QList<std::tuple<QString, QString, qint64, qint64>>{
                 {Cle(), "400", 500, 0},
                 {CleExercice(numSoc, 2023), "400", 0, 500},
                 {Cle(), "410", 1200, 0},
                 {CleExercice(numSoc, 2023), "410", 0, 1189}}) {
            table::Compte c;
            c.CleCpt = cle;
            c.NumCpt = numero;
            c.Sde = Montant::depuisUnites(sde);
            c.Solde = Montant::depuisUnites(solde) - Montant::depuisCentimes(solde == 1189 ? 1 : 0);
            AjouterCompte(c);
        }
        ui::RepondreBoite(ui::Reponse::Non);
        Bouton("Tresorerie");
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Avertissement"));
        QCOMPARE(ui::JournalBoites()[0].texte,
                 QStringLiteral("Nous vous conseillons de faire un transfert de \n"
                                "l'exercice précédent sur l'exercice en cours.\n"
                                "(Bouton Clôture de l'exercice précédent)\n"
                                "Grâce à ce transfert, les soldes de début d'exercice\n"
                                "des clients et fournisseurs de l'exercice en cours\n"
                                "seront égaux au derniers soldes de l'exercice précédent.\n"
                                "Voulez-vous continuer ?"));
        QVERIFY(essai::EcransOuverts().isEmpty());
        ui::RepondreBoite(ui::Reponse::Oui);
        Bouton("Tresorerie");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Tresor00"}));
    }

    void tresorerie_ecartDe10_pasDAvertissement() {
        Comptes(10);
        essai::AjouterAnnee(numSoc, 2023);
        table::Compte c;
        c.CleCpt = CleExercice(numSoc, 2023);
        c.NumCpt = "410";
        c.Solde = Montant::depuisUnites(10);
        AjouterCompte(c);
        Bouton("Tresorerie");
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::EcransOuverts(), QStringList({"Tresor00"}));
    }

    void sansPorte_planSauvegardeAideMemeSansCompte() {
        Bouton("Plan");
        Bouton("Sauver");
        Bouton("Aide");
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(essai::EcransOuverts(), QStringList({"Plan2", "Backup"}));
        QCOMPARE(ui::JournalDialogues().size(), 1);
        QCOMPARE(ui::JournalDialogues()[0].dialogue, ui::Dialogue::AideIndex);
        QVERIFY(ui::JournalDialogues()[0].accepte);
    }

    void menus_ouvrentLeursEcrans() {
        ui::RepondreBoite(ui::Reponse::Non); // le conseil avant la balance fiscale
        for (const char* cle : {"SMCreer", "SMSauve", "SMAncienne", "SMBalFisc"})
            Entree(cle);
        QCOMPARE(essai::EcransOuverts(), QStringList({"Plan2", "Backup", "Sauve", "Fiscalite"}));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Attention"));
        Entree("SMIndex");
        QCOMPARE(ui::JournalDialogues().last().dialogue, ui::Dialogue::AideIndex);
    }

    void restaurationAncienne_avertissementPuisEcran() {
        ui::RepondreBoite(ui::Reponse::Non);
        Entree("SMRestaure");
        QVERIFY(essai::EcransOuverts().isEmpty());
        QVERIFY(ui::JournalBoites()[0].texte.startsWith(
            "=========================================================\nCETTE FONCTION A ETE "
            "CONSERVEE POUR RAISON DE COMPATIBILITE\n"));
        QVERIFY(ui::JournalBoites()[0].texte.contains(
            "ANTERIEURE DU LOGICIEL.\n=========================================================\n"
            "SI VOUS CLIQUEZ"));
        ui::RepondreBoite(ui::Reponse::Oui);
        Entree("SMRestaure");
        QCOMPARE(essai::EcransOuverts(), QStringList({"Restaure"}));
    }

    void gerer_options_apropos_ouvrentLeursEcrans() {
        PiloteModal pilote;
        pilote.Attendre("Societe", Fermer())
            .Attendre("Options", Cliquer("Command2"))
            .Attendre("APropos", Cliquer("Command1"))
            .Attendre("APropos", Cliquer("Command1"));
        pilote.Demarrer();
        Entree("SocGerer");
        Entree("SMSymbMon");
        Entree("SMPropos");
        Bouton("Apropos");
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QVERIFY(!ui::FinDemandee());
    }

    void quitter_parLaBarreEtParLeMenu() {
        Bouton("Quitter");
        QVERIFY(ui::FinDemandee());
        ui::ObserverFin(true);
        Entree("SocQuit");
        QVERIFY(ui::FinDemandee());
    }

    // Le nom relevé est celui du type ouvert, le même que l'objectName de l'écran.
    void nomDUnEcran_estSonObjectName() {
        QCOMPARE(ecran::NomEcran<ecran::General>(), QStringLiteral("General"));
        ecran::Options options;
        QCOMPARE(ecran::NomEcran<ecran::Options>(), options.objectName());
    }

    void ligneDeCommandeSav_lOuverturePrevientQuIlFautChoisir() {
        ecran::FermerGeneral();
        session().LigneCommande = QStringLiteral("/home/lea/maroval01-02-2024-10h00.SAV");
        ui::RepondreBoite(ui::Reponse::OK);
        ecran::MontrerGeneral();
        general = ecran::General::Instance();
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Vous devez sélectionnez une société et un exercice avant de "
                              "pouvoir restaurer cette sauvegarde."}));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestGeneral t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_general.moc"
