// Libellé d'un groupe passé changé par l'écran : toutes les lignes du groupe et elles
// seules, texte rangé tel que tapé (apostrophe, guillemet), aucun cumul ne bouge.

#include "EssaiJournal.h"

#include "entry/ModifLib.h"
#include "ui/Application.h"

#include <QLineEdit>
#include <QPushButton>
#include <memory>

using namespace essai;

class TestModifLib : public QObject {
    Q_OBJECT
    LivresTroisGroupes livres;
    std::unique_ptr<ecran::ModifLib> modif;
    ui::Grille* t1 = nullptr;
    ui::Grille* t2 = nullptr;
    QLineEdit* text1 = nullptr;
    QPushButton* command2 = nullptr;

    void Ouvrir() {
        modif = std::make_unique<ecran::ModifLib>();
        t1 = modif->findChild<ui::Grille*>("Tree1");
        t2 = modif->findChild<ui::Grille*>("Tree2");
        text1 = modif->findChild<QLineEdit*>("Text1");
        command2 = modif->findChild<QPushButton*>("Command2");
        modif->show();
        modif->activateWindow();
        QTRY_COMPARE(t1->NombreLignes(), 13);
    }
    // Le texte du champ remplacé au clavier, puis Entrée.
    void Taper(const QString& texte) {
        text1->setFocus();
        text1->selectAll();
        QTest::keyClick(text1, Qt::Key_Delete);
        support::TaperCaracteres(text1, texte);
        QTest::keyClick(text1, Qt::Key_Return);
    }
    QString Libelle(int numero) { return LigneLue(numero).LibEcr.trimmed(); }

private slots:
    void init() { livres.Ouvrir(); }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        modif.reset();
        livres.Fermer();
    }

    void ouverture_confirmationFermeeEtChampVide() {
        Ouvrir();
        QCOMPARE(modif->windowTitle(),
                 QStringLiteral("Modification du libellé d'un groupe d'écritures"));
        QVERIFY(!command2->isEnabled());
        QCOMPARE(text1->text(), QString());
        QCOMPARE(t2->NombreColonnes(), 8);
    }

    void clicSurUneLigne_leGroupeEtSonLibelle() {
        Ouvrir();
        CliquerNumero(t1, 7);
        QCOMPARE(Numeros(t2), (QList<int>{4, 5, 6, 7, 8}));
        QCOMPARE(text1->text(), QStringLiteral("Essai 411001"));
        QVERIFY(text1->hasFocus());
        QVERIFY(!command2->isEnabled());
    }

    // Le plus petit groupe possible, deux lignes : cliqué sur l'une ou l'autre.
    void groupesDeDeuxLignes_cliquesSurChacune() {
        modif.reset();
        LivresGroupesDeDeux(livres);
        modif = std::make_unique<ecran::ModifLib>();
        t1 = modif->findChild<ui::Grille*>("Tree1");
        t2 = modif->findChild<ui::Grille*>("Tree2");
        text1 = modif->findChild<QLineEdit*>("Text1");
        modif->show();
        QTRY_COMPARE(t1->NombreLignes(), 9);
        for (const auto& [clic, debut] : {std::pair{1, 1}, {2, 1}, {6, 6}, {7, 6}}) {
            CliquerNumero(t1, clic);
            QCOMPARE(Numeros(t2), (QList<int>{debut, debut + 1}));
            QCOMPARE(text1->text(), QStringLiteral("Essai 512"));
        }
    }

    void clicSurSeparateur_message() {
        Ouvrir();
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(support::CliquerCellule(t1, 9, 0));
        QCOMPARE(DerniereBoite(),
                 QStringLiteral("Veuillez sélectionner une ligne contenant une écriture"));
        QCOMPARE(t2->NombreLignes(), 0);
    }

    void entreeSansGroupe_message() {
        Ouvrir();
        ui::RepondreBoite(ui::Reponse::OK);
        Taper(QStringLiteral("Rien"));
        QCOMPARE(DerniereBoite(), QStringLiteral("Sélectionnez d'abord un groupe d'écritures"));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Exclamation);
    }

    void libelleAvecApostropheEtGuillemet_toutLeGroupeEtLuiSeul() {
        const QStringList comptesAvant = VidageTable("Compte") + VidageTable("Constante");
        Ouvrir();
        CliquerNumero(t1, 5);
        const QString texte = QStringLiteral("Facture d'avril \"urgent\"");
        Taper(texte);
        // Le résultat se voit avant d'être rangé.
        for (int l = 0; l < 5; ++l)
            QCOMPARE(t2->Texte(l, 3), texte);
        QCOMPARE(Libelle(4), QStringLiteral("Essai 411001"));
        QVERIFY(command2->isEnabled());
        QVERIFY(command2->hasFocus());
        QTest::mouseClick(command2, Qt::LeftButton);
        for (int n = 4; n <= 8; ++n)
            QCOMPARE(Libelle(n), texte);
        // Les groupes voisins gardent leur libellé.
        QCOMPARE(Libelle(3), QStringLiteral("Essai 44571"));
        QCOMPARE(Libelle(9), QStringLiteral("Essai 411001"));
        QCOMPARE(VidageTable("Compte") + VidageTable("Constante"), comptesAvant);
        QCOMPARE(EcartsDesLivres(livres.depart), QString());
        // L'activation repart : journal relu, champ vide, confirmation fermée.
        QCOMPARE(t1->Texte(LigneDuNumero(t1, 6), 3), texte);
        QCOMPARE(text1->text(), QString());
        QVERIFY(!command2->isEnabled());
    }

    void confirmationAvecChampVide_message() {
        Ouvrir();
        CliquerNumero(t1, 2);
        Taper(QString());
        // Le champ vidé a changé : la confirmation s'ouvre, et refuse.
        QVERIFY(command2->isEnabled());
        ui::RepondreBoite(ui::Reponse::OK);
        QTest::mouseClick(command2, Qt::LeftButton);
        QCOMPARE(DerniereBoite(),
                 QStringLiteral("Saisissez un nouveau libellé avant de cliquer sur OK"));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);
        QVERIFY(text1->hasFocus());
        QCOMPARE(Libelle(2), QStringLiteral("Essai 707"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestModifLib t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_modiflib.moc"
