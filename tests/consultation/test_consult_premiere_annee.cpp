// Le premier mois d'un nouvel utilisateur, par les écrans seulement : dossier neuf, création
// de la société, plan standard, bilan d'ouverture clos, ventes en saisie logique, règlement
// et achat en débits et crédits, une contre-passation ; puis journal, balance, bilan, compte
// de résultat et exports comparés aux chiffres calculés ici à part ; enfin la fin de
// l'année par les seuls menus : grand livre en PDF, balance fiscale, exercice suivant.

#include "EssaiConsultation.h"
#include "support/GestesGrille.h"
#include "support/GestesSaisie.h"

#include "base/Reglages.h"
#include "chart/Plan2.h"
#include "chart/Prembil.h"
#include "companies/Demarrage.h"
#include "companies/General.h"
#include "companies/OuvertureEcrans.h"
#include "consultation/Balance.h"
#include "consultation/Bilan.h"
#include "consultation/Journal.h"
#include "consultation/Resultat.h"
#include "entry/Annul.h"
#include "entry/Choisais.h"
#include "entry/SaisDC2.h"
#include "ui/Application.h"
#include "ui/Horloge.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace essai;
using support::PiloteModal;

namespace {

int Lignes(const QString& chemin) {
    return static_cast<int>(LireFichier(chemin).count("\r\n"));
}

} // namespace

class TestPremiereAnnee : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

    // Facture de vente par toute la chaîne de la saisie logique.
    static bool Vendre(const QString& date, int ht, int tva, const QString& libelle) {
        session().DateSaisieCourante = date;
        const QString echec = SaisirOperation(1, 1,
                                              {{1, "7071", QString::number(ht)},
                                               {2, "445711", QString::number(tva)},
                                               {3, "411", QString::number(ht + tva)}},
                                              libelle);
        if (!echec.isEmpty()) qWarning("%s", qPrintable(echec));
        return echec.isEmpty();
    }

    // Écriture en débits et crédits : "compte D|C montant" par ligne.
    static void Passer(const QString& date, const QString& journal, const QStringList& lignes,
                       const QString& libelle) {
        session().DateSaisieCourante = date;
        Base().exec("DELETE FROM wSaisie");
        session().JournalSaisie = journal;
        session().LigneMenuSaisie = QString();
        ecran::SaisDC2 e;
        e.show();
        auto* t1 = e.findChild<ui::Grille*>("Tree1");
        auto* t2 = e.findChild<ui::Grille*>("Tree2");
        e.findChild<QLineEdit*>("Text2")->setText(libelle);
        for (const QString& l : lignes) {
            t1->FixerLigneCourante(t1->ChercherTexte(0, l.section(' ', 0, 0)));
            QTest::mouseClick(e.findChild<QPushButton*>("BAjout"), Qt::LeftButton);
        }
        for (const QString& l : lignes) {
            const int ligne = t2->ChercherTexte(0, l.section(' ', 0, 0));
            support::CliquerCellule(t2, ligne, l.section(' ', 1, 1) == "D" ? 2 : 3);
            support::TaperDansCellule(t2, l.section(' ', 2, 2), Qt::Key_Tab);
        }
        e.findChild<QCheckBox*>("BCrappel")->setChecked(false);
        QTest::mouseClick(e.findChild<QPushButton*>("Command1"), Qt::LeftButton);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        session() = Session();
        EcrireReglage("intl", "sDecimal", ",");
        ecransDemarrage() = EcransParDefaut();
        ecran::FixerReleve({});
        ui::FixerHorloge(QDateTime(QDate(2024, 1, 2), QTime(8, 0)));
        QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
        FixerApplicationAssociee(true);
    }
    void cleanup() {
        FixerApplicationAssociee(std::nullopt);
        QLocale::setDefault(QLocale::c());
        ecran::FermerGeneral();
        FermerBase();
        LibererDossierDonnees();
        ecran::FixerReleve({});
        dossier.reset();
    }

    void premierMois_parLesEcrans() {
        // Démarrage sur un dossier neuf : création de la société et choix de l'exercice.
        PiloteModal depart;
        depart
            .Attendre("CreSociete",
                      [](QWidget* f) {
                          support::TaperTexte(f, "Text1", T("Boulangerie Léa"));
                          support::TaperTexte(f, "Text4", "Lyon");
                          support::CliquerBouton(f, "Command1");
                      })
            .Attendre("Societe",
                      [](QWidget* f) {
                          support::ChoisirLigneListe(f, "List2", 0);
                          support::CliquerBouton(f, "Command4");
                      })
            .AttendreBoite(T("Vous n'avez pas modifié la date de saisie. Etes-vous sûr(e) de "
                             "vouloir continuer ?"),
                           "Oui");
        depart.Demarrer();
        QVERIFY(Demarrage({"maroval"}));
        QVERIFY2(depart.AttendreFin(), qPrintable(depart.Echec()));
        GardeBoites garde;
        MajFormatMontant(2);

        // Plan standard pris en entier.
        {
            auto plan = MontrerEcran<ecran::Plan2>();
            support::ChoisirLigneListe(plan.get(), "List1", 0);
            ui::RepondreBoite(ui::Reponse::Oui);
            support::CliquerBouton(plan.get(), "Command1");
            support::CliquerBouton(plan.get(), "Command4");
        }
        QVERIFY(CompteExiste("512"));

        // Bilan d'ouverture : 1 000 en banque apportés en capital, clos.
        {
            auto ouverture = MontrerEcran<ecran::Prembil>();
            const auto saisir = [&](const char* grille, const char* numero) {
                ui::Grille* g = Grille(ouverture.get(), grille);
                support::CliquerCellule(g, g->ChercherTexte(0, numero), 2);
                return support::TaperDansCellule(g, "1000");
            };
            QVERIFY(saisir("Tree1", "512"));
            QVERIFY(saisir("Tree2", "101"));
            ui::RepondreBoite(ui::Reponse::Oui);
            ui::RepondreBoite(ui::Reponse::OK);
            support::CliquerBouton(ouverture.get(), "Command1");
        }
        QVERIFY(Constante().OuvertureClos);

        // Un mois d'écritures.
        QVERIFY(Vendre("10/01/2024", 1000, 200, "Ventes du 10"));
        QVERIFY(Vendre("15/01/2024", 500, 100, "Ventes du 15"));
        Passer("20/01/2024", "T", {"512 D 1200", "411 C 1200"}, T("Règlement client"));
        Passer("22/01/2024", "A", {"607 D 300", "44566 D 60", "401 C 360"}, "Achat farine");
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 3 + 3 + 2 + 3);

        // Contre-passation de la vente du 15 (lignes 4 à 6).
        session().DateSaisieCourante = QStringLiteral("31/01/2024");
        {
            ecran::Annul annul;
            annul.show();
            ui::Grille* t1 = Grille(&annul, "Tree1");
            QTRY_VERIFY(t1->NombreLignes() > 0);
            const int ligne = t1->ChercherTexte(0, "5");
            QVERIFY(ligne >= 0);
            support::CliquerCellule(t1, ligne, 0);
            QTest::mouseClick(annul.findChild<QPushButton*>("Command3"), Qt::LeftButton);
            QTest::mouseClick(annul.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        }
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture"), 14);

        // Chiffres attendus, comptés à part : ventes 1 000, TVA 200, achats 300 et TVA 60.
        const Montant debits = Euros(1200 + 600 + 1200 + 360 + 600);
        {
            auto j = MontrerEcran<ecran::Journal>();
            CliquerOption(j.get(), "BRCrois");
            QCOMPARE(Grille(j.get(), "Tree1")->NombreLignes(), 14 + 5);
            QCOMPARE(Texte(j.get(), "Label1"), FormaterMontant(debits, session().FormatMontant));
            QCOMPARE(Texte(j.get(), "Label2"), Texte(j.get(), "Label1"));
            const QString csv = dossier->Fichier("journal.csv");
            Exporter(j.get(), "Command3", csv);
            QCOMPARE(Lignes(csv), 1 + 14);
        }
        {
            auto b = MontrerEcran<ecran::Balance>();
            QCOMPARE(EcartsTotauxBalance(b.get()), QString());
            CliquerOption(b.get(), "BRCompl");
            const QStringList totaux = Ligne(Grille(b.get(), "Tree2"), 0);
            QCOMPARE(totaux[5], QStringLiteral("2 560,00 E"));
            QCOMPARE(totaux[6], QStringLiteral("2 560,00 E"));
            QVERIFY(Texte(b.get(), "Label1").isEmpty());
        }
        {
            auto b = MontrerEcran<ecran::Bilan>();
            QCOMPARE(Texte(b.get(), "Label3"), QStringLiteral("2 260,00 E"));
            QCOMPARE(Texte(b.get(), "Label4"), QStringLiteral("1 560,00 E"));
            QCOMPARE(Texte(b.get(), "Label10"), QStringLiteral("700,00 E"));
            const QString csv = dossier->Fichier("bilan.csv");
            Exporter(b.get(), "CBExportExcel", csv);
            QVERIFY(LireFichier(csv).endsWith(
                T(";Résultat (sous réserve des écritures d'inventaire) :;700,00 E\r\n").toUtf8()));
        }
        {
            auto r = MontrerEcran<ecran::Resultat>();
            QCOMPARE(Texte(r.get(), "Label3"), QStringLiteral("300,00 E"));
            QCOMPARE(Texte(r.get(), "Label4"), QStringLiteral("1 000,00 E"));
            QCOMPARE(Texte(r.get(), "Label10"), QStringLiteral("700,00 E"));
        }

        // La fin de l'année par les seuls menus de l'écran principal : grand livre imprimé
        // en PDF, balance fiscale et son fichier, plan de l'exercice suivant.
        ecran::General* general = ecran::General::Instance();
        QVERIFY(general);
        session().DateSaisieCourante = QStringLiteral("31/12/2024");
        const auto parLeMenu = [&](const QString& cle, const QString& ecran,
                                   const support::Action& action) {
            PiloteModal p;
            p.Attendre(ecran, action);
            p.Demarrer();
            general->Action(cle)->trigger();
            return p.AttendreFin() ? QString() : p.Echec();
        };
        const QString livre = dossier->Fichier("grand-livre.pdf");
        QCOMPARE(parLeMenu("Edition", "Editions",
                           [&](QWidget* f) {
                               f->findChild<QCheckBox*>("CBPdf")->setChecked(true);
                               ui::RepondreFichier(livre);
                               support::CliquerBouton(f, "Command7");
                               support::CliquerBouton(f, "Command3");
                           }),
                 QString());
        const QString texteLivre = essai::TextePdf(livre);
        QVERIFY2(texteLivre.contains("GRAND LIVRE") && texteLivre.contains("Achat farine"),
                 qPrintable(texteLivre.left(400)));

        const QString liaison = dossier->Fichier("liaison.txt");
        const QString balance = dossier->Fichier("balance-fiscale.pdf");
        ui::RepondreBoite(ui::Reponse::Non); // pas d'aide avant la balance fiscale
        QCOMPARE(parLeMenu("SMBalFisc", "Fiscalite",
                           [&](QWidget* f) {
                               f->findChild<QCheckBox*>("CBPdf")->setChecked(true);
                               ui::RepondreFichier(liaison);
                               ui::RepondreBoite(ui::Reponse::OK);
                               ui::RepondreFichier(balance);
                               support::CliquerBouton(f, "Command3");
                               support::CliquerBouton(f, "Command2");
                           }),
                 QString());
        const QByteArray fichier = LireFichier(liaison);
        QVERIFY(fichier.size() > 0);
        QCOMPARE(fichier.size() % 125, 0); // 123 octets et CR LF par ligne
        QVERIFY(essai::TextePdf(balance).contains("BALANCE FISCALE"));

        QCOMPARE(parLeMenu("Cloture", "Cloture",
                           [&](QWidget* f) {
                               ui::RepondreBoite(ui::Reponse::OK);
                               ui::RepondreBoite(ui::Reponse::Non); // pas de transfert provisoire
                               support::CliquerBouton(f, "Command1");
                               support::CliquerBouton(f, "Command3");
                           }),
                 QString());
        table::Constante suivant;
        QVERIFY(LireConstante(CleExercice(session().NumSocCourante, 2025), suivant));
        // Le plan de l'exercice suivant : les comptes que l'année a servis et les quatre fixes.
        const auto comptes = [](int annee, const std::string& filtre) {
            return Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='" +
                           CleExercice(session().NumSocCourante, annee).toStdString() + "'" +
                           filtre);
        };
        const int servis = comptes(2024, " AND (Sde <> 0 OR CumD <> 0 OR CumC <> 0 OR NumCpt IN "
                                         "('400', '410', '699', '799'))");
        QVERIFY(servis >= 10);
        QCOMPARE(comptes(2025, ""), servis);
        QVERIFY2(garde.inattendues.isEmpty(), qPrintable(garde.inattendues.join(" | ")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPremiereAnnee t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_consult_premiere_annee.moc"
