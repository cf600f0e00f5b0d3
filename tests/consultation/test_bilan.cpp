// Bilan et compte de résultat : les listes tirées des soldes (clients et fournisseurs par
// leurs collectifs, 699 et 799 hors du résultat), les deux façons de totaliser, le résultat,
// les légendes finales, le détail d'un compte au double clic, l'export et sa question.

#include "EssaiConsultation.h"
#include "support/GestesGrille.h"

#include "consultation/Bilan.h"
#include "consultation/Resultat.h"
#include "session/Session.h"
#include "ui/Application.h"

#include <QRadioButton>

using namespace essai;

namespace {

const QString SousReserve = T("Résultat (sous réserve des écritures d'inventaire) :");

} // namespace

class TestBilan : public QObject {
    Q_OBJECT
    BancConsultation banc;

    // Écriture de résultat du dernier jour : la perte de 30 passe par 799 et 129.
    static void EcritureDeResultat() {
        Compte("129", "Perte");
        Passer("31/12/2024", {{"129", "D", Euros(30)}, {"799", "C", Euros(30)}}, "I");
    }

private slots:
    void initTestCase() { banc.Preparer(&LivresBoutique); }
    void cleanupTestCase() { banc.Liberer(); }
    void init() { banc.Debut(); }
    void cleanup() {
        const QStringList inattendues = banc.Fin();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(" | ")));
    }

    void bilan_listesTotauxEtResultat() {
        auto e = MontrerEcran<ecran::Bilan>();
        QCOMPARE(e->objectName(), QStringLiteral("Bilan"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Bilan"));
        QCOMPARE(Titres(Grille(e.get(), "Tree1")), QStringList({"Numéro", "Libellé", "Solde"}));
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("Actif"));
        QCOMPARE(Texte(e.get(), "Label2"), QStringLiteral("Passif"));
        QCOMPARE(Texte(e.get(), "Label5"), T("Total de l'Actif :"));
        QCOMPARE(Texte(e.get(), "Label6"), T("Total du Passif :"));
        // Le client créditeur reste dans la ligne du collectif 410.
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")),
                 QList<QStringList>({{"410", "Clients collectif", "90,00 E"},
                                     {"512", "Banque", "830,00 E"},
                                     {"530", "Caisse", "0,00 E"}}));
        QCOMPARE(Lignes(Grille(e.get(), "Tree2")),
                 QList<QStringList>({{"400", "Fournisseurs collectif", "-50,00 E"},
                                     {"101", "Capital", "1 000,00 E"}}));
        QCOMPARE(Texte(e.get(), "Label3"), QStringLiteral("920,00 E"));
        QCOMPARE(Texte(e.get(), "Label4"), QStringLiteral("950,00 E"));
        QCOMPARE(Texte(e.get(), "Label10"), QStringLiteral("-30,00 E"));
        QCOMPARE(Texte(e.get(), "Label9"), SousReserve);
    }

    void resultat_listesSans699Ni799() {
        auto e = MontrerEcran<ecran::Resultat>();
        QCOMPARE(e->objectName(), QStringLiteral("Resultat"));
        QCOMPARE(e->windowTitle(), T("Compte de Résultat"));
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("Charges"));
        QCOMPARE(Texte(e.get(), "Label2"), QStringLiteral("Produits"));
        QCOMPARE(Texte(e.get(), "Label5"), T("Total des charges :"));
        QCOMPARE(Texte(e.get(), "Label6"), T("Total des produits :"));
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")),
                 QList<QStringList>({{"607", "Achats", "200,00 E"}}));
        QCOMPARE(Lignes(Grille(e.get(), "Tree2")),
                 QList<QStringList>(
                     {{"707", "Ventes", "170,00 E"}, {"708", "Ventes annexes", "0,00 E"}}));
        QCOMPARE(Texte(e.get(), "Label3"), QStringLiteral("200,00 E"));
        QCOMPARE(Texte(e.get(), "Label4"), QStringLiteral("170,00 E"));
        QCOMPARE(Texte(e.get(), "Label10"), QStringLiteral("-30,00 E"));
        QCOMPARE(Texte(e.get(), "Label9"), SousReserve);
    }

    void sommes_bilanCeQuiEstAfficheResultatLesSoldes() {
        // Quatre dix-millièmes sur deux lignes de chaque écran : 0,00 affiché sur chacune.
        Base().exec("UPDATE Compte SET Solde=Solde+40 WHERE NumCpt IN ('512', '530', '707', "
                    "'708')");
        auto b = MontrerEcran<ecran::Bilan>();
        QCOMPARE(Texte(b.get(), "Label3"), QStringLiteral("920,00 E"));
        auto r = MontrerEcran<ecran::Resultat>();
        QCOMPARE(Grille(r.get(), "Tree2")->Texte(0, 2), QStringLiteral("170,00 E"));
        QCOMPARE(Texte(r.get(), "Label4"), QStringLiteral("170,01 E"));
    }

    void exerciceSansEcriture_zeroSousReserveOuAffecteAuDernierJour() {
        Base().exec("UPDATE Compte SET Sde=0, CumD=0, CumC=0, Solde=0");
        {
            auto e = MontrerEcran<ecran::Bilan>();
            QCOMPARE(Texte(e.get(), "Label3"), QStringLiteral("0,00 E"));
            QCOMPARE(Texte(e.get(), "Label10"), QStringLiteral("0,00 E"));
            QCOMPARE(Texte(e.get(), "Label9"), SousReserve);
        }
        Base().exec("UPDATE Constante SET DateSaisie='20241231'");
        auto e = MontrerEcran<ecran::Bilan>();
        QCOMPARE(Texte(e.get(), "Label9"), T("Votre résultat a été affecté au bilan."));
    }

    void apresEcritureDeResultat_bilanZeroResultatDeLAnnee() {
        EcritureDeResultat();
        // La date de saisie de l'exercice est au dernier jour.
        Base().exec("UPDATE Constante SET DateSaisie='20241231'");
        auto b = MontrerEcran<ecran::Bilan>();
        QCOMPARE(Texte(b.get(), "Label3"), QStringLiteral("920,00 E"));
        QCOMPARE(Texte(b.get(), "Label4"), QStringLiteral("920,00 E"));
        QCOMPARE(Texte(b.get(), "Label10"), QStringLiteral("0,00 E"));
        QCOMPARE(Texte(b.get(), "Label9"), T("Votre résultat a été affecté au bilan."));
        auto r = MontrerEcran<ecran::Resultat>();
        QCOMPARE(Texte(r.get(), "Label10"), QStringLiteral("-30,00 E"));
        QCOMPARE(Texte(r.get(), "Label9"), T("Votre résultat :"));
    }

    void doubleClic_detailDuCompteEtGrilleVide() {
        auto e = MontrerEcran<ecran::Bilan>();
        support::PiloteModal pilote;
        QString titre;
        pilote.Attendre("DetailCp", [&](QWidget* d) {
            titre = Texte(d, "Label1");
            support::CliquerBouton(d, "Command1");
        });
        pilote.Demarrer();
        support::CliquerCellule(Grille(e.get(), "Tree2"), 1, 0, true);
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(session().CompteChoisi, QStringLiteral("101"));
        QCOMPARE(titre, QStringLiteral("101   Capital"));
        // Grilles vides : un compte vide part au détail.
        Base().exec("UPDATE Compte SET ErCpt='NN' WHERE ErCpt IN ('E2', 'R2')");
        auto r = MontrerEcran<ecran::Resultat>();
        QCOMPARE(Grille(r.get(), "Tree1")->NombreLignes(), 0);
        support::PiloteModal second;
        second.Attendre("DetailCp", [&](QWidget* d) { support::CliquerBouton(d, "Command1"); });
        second.Demarrer();
        session().CompteChoisi = QStringLiteral("xx");
        QTest::mouseDClick(Grille(r.get(), "Tree1")->viewport(), Qt::LeftButton, {},
                           QPoint(20, 20));
        QVERIFY2(second.AttendreFin(), qPrintable(second.Echec()));
        QCOMPARE(session().CompteChoisi, QString());
    }

    void export_bilanOctets() {
        auto e = MontrerEcran<ecran::Bilan>();
        const QString chemin = banc.Fichier("bilan.csv");
        Exporter(e.get(), "CBExportExcel", chemin);
        QVERIFY(ui::JournalDialogues().last().detail.endsWith(QStringLiteral("Bilan.csv")));
        QCOMPARE(TextesBoites(),
                 QStringList({T("Le Bilan a été exporté sous \"") + chemin +
                              T("\"\r\n\r\nVoulez-vous ouvrir ce fichier maintenant ?")}));
        QCOMPARE(LireFichier(chemin),
                 Bom + T("\"ACTIF\"\r\n\"Numéro\";\"Libellé\";\"Solde\"\r\n"
                         "410;Clients collectif;90,00 E\r\n512;Banque;830,00 E\r\n"
                         "530;Caisse;0,00 E\r\n;Total de l'Actif :;920,00 E\r\n"
                         "\"PASSIF\"\r\n\"Numéro\";\"Libellé\";\"Solde\"\r\n"
                         "400;Fournisseurs collectif;-50,00 E\r\n101;Capital;1 000,00 E\r\n"
                         ";Total du Passif :;950,00 E\r\n;;;\r\n"
                         ";Résultat (sous réserve des écritures d'inventaire) :;-30,00 E\r\n")
                           .toUtf8());
    }

    void export_resultatFichierExistantQuestionEtNon() {
        auto e = MontrerEcran<ecran::Resultat>();
        const QString chemin = banc.Fichier("resultat.csv");
        {
            QFile f(chemin);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("ancien");
        }
        ui::RepondreFichier(chemin);
        ui::RepondreBoite(ui::Reponse::Non);
        support::CliquerBouton(e.get(), "CBExportExcel");
        QVERIFY(ui::JournalDialogues().last().detail.endsWith(T("Compte_de_Résultat.csv")));
        QCOMPARE(TextesBoites(), QStringList({T("Le fichier ") + chemin +
                                              T(" existe déjà ! \n\nSouhaitez-vous l'écraser "
                                                "par le nouveau ?")}));
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("Confirmation"));
        QCOMPARE(LireFichier(chemin), QByteArray("ancien"));
        // Oui : le fichier est remplacé.
        ui::ViderJournalBoites();
        ui::RepondreFichier(chemin);
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Non);
        support::CliquerBouton(e.get(), "CBExportExcel");
        QCOMPARE(TextesBoites().last(),
                 T("Le Compte de Résultat a été exporté sous \"") + chemin +
                     T("\"\r\n\r\nVoulez-vous ouvrir ce fichier maintenant ?"));
        QCOMPARE(LireFichier(chemin),
                 Bom + T("\"CHARGES\"\r\n\"Numéro\";\"Libellé\";\"Solde\"\r\n"
                         "607;Achats;200,00 E\r\n;Total des charges :;200,00 E\r\n"
                         "\"PRODUITS\"\r\n\"Numéro\";\"Libellé\";\"Solde\"\r\n"
                         "707;Ventes;170,00 E\r\n708;Ventes annexes;0,00 E\r\n"
                         ";Total des produits :;170,00 E\r\n;;;\r\n"
                         ";Résultat (sous réserve des écritures d'inventaire) :;-30,00 E\r\n")
                           .toUtf8());
    }

    void retourEtQuitter() {
        auto e = MontrerEcran<ecran::Bilan>();
        QCOMPARE(support::TrouverBouton(e.get(), "Command2")->text(), QStringLiteral("Retour"));
        QCOMPARE(support::TrouverBouton(e.get(), "Command4")->text(), QStringLiteral("Quitter"));
        QCOMPARE(support::TrouverBouton(e.get(), "CBExportExcel")->text(),
                 T("Export vers Excel (Fichier CSV)"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestBilan t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_bilan.moc"
