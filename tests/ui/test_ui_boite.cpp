// Boîtes de message : réponses d'avance, journal, vraie boîte cliquée, Echap.
#include "support/DossierEssai.h"
#include "support/ProcessusFils.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

using namespace ui;

namespace {

// Agit sur la boîte dès qu'elle est modale (sans le pilote, pour tester la boîte seule).
void QuandBoite(std::function<void(QMessageBox*)> action) {
    auto* minuterie = new QTimer;
    minuterie->setInterval(10);
    QObject::connect(minuterie, &QTimer::timeout, [minuterie, action] {
        auto* boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!boite) return;
        minuterie->stop();
        minuterie->deleteLater();
        QTimer::singleShot(0, boite, [boite, action] { action(boite); });
    });
    minuterie->start();
}

} // namespace

class TestBoite : public QObject {
    Q_OBJECT
private slots:
    void init() { support::RemettreServicesAZero(); }

    void reponsesDAvancePremierEntrePremierServi() {
        RepondreBoite(Reponse::Non);
        RepondreBoite(Reponse::Oui);
        QCOMPARE(ReponsesEnAttente(), 2);
        QCOMPARE(Boite("Première ?", "Maroval", Icone::Question, Boutons::OuiNon), Reponse::Non);
        QCOMPARE(Boite("Seconde ?", "Titre", Icone::Question, Boutons::OuiNon), Reponse::Oui);
        QCOMPARE(ReponsesEnAttente(), 0);
        QCOMPARE(JournalBoites().size(), 2);
        QCOMPARE(JournalBoites()[0].texte, QString("Première ?"));
        QCOMPARE(JournalBoites()[0].reponse, Reponse::Non);
        QCOMPARE(JournalBoites()[1].titre, QString("Titre"));
        QCOMPARE(JournalBoites()[1].reponse, Reponse::Oui);
    }

    void journalGardeTitreTexteIconeEtBoutonParDefaut() {
        RepondreBoite(Reponse::Non);
        Boite("Si vous répondez OUI, vous supprimerez 3 écritures ! ! !",
              "ATTENTION.. DERNIER AVERTISSEMENT", Icone::Critique, Boutons::OuiNon, 2);
        const EntreeJournal& e = JournalBoites().last();
        QCOMPARE(e.titre, QString("ATTENTION.. DERNIER AVERTISSEMENT"));
        QCOMPARE(e.icone, Icone::Critique);
        QCOMPARE(e.boutons, Boutons::OuiNon);
        QCOMPARE(e.boutonParDefaut, 2);
        ViderJournalBoites();
        QVERIFY(JournalBoites().isEmpty());
    }

    void vraieBoiteMontreTexteTitreIconeEtBoutonsFrancais() {
        QString texte, titre, defaut;
        QStringList libelles;
        QMessageBox::Icon icone = QMessageBox::NoIcon;
        QString nom;
        QuandBoite([&](QMessageBox* b) {
            nom = b->objectName();
            texte = b->text();
            titre = b->windowTitle();
            icone = b->icon();
            for (QAbstractButton* bouton : b->buttons())
                libelles << bouton->text();
            defaut = b->defaultButton() ? b->defaultButton()->text() : QString();
            for (QAbstractButton* bouton : b->buttons())
                if (bouton->text() == "Annuler") bouton->click();
        });
        const Reponse r = Boite("La monnaie de l'exercice est indéfinie.", "ATTENTION",
                                Icone::Exclamation, Boutons::OuiNonAnnuler, 3);
        QCOMPARE(r, Reponse::Annuler);
        QCOMPARE(nom, QString("Boite"));
        QCOMPARE(texte, QString("La monnaie de l'exercice est indéfinie."));
        QCOMPARE(titre, QString("ATTENTION"));
        QCOMPARE(icone, QMessageBox::Warning);
        libelles.sort();
        QCOMPARE(libelles, QStringList({"Annuler", "Non", "Oui"}));
        QCOMPARE(defaut, QString("Annuler"));
        QCOMPARE(JournalBoites().last().reponse, Reponse::Annuler);
    }

    void boutonParDefautSecondSurOuiNon() {
        QString defaut;
        QuandBoite([&](QMessageBox* b) {
            defaut = b->defaultButton()->text();
            // Entrée valide le bouton par défaut.
            QTest::keyClick(b, Qt::Key_Return);
        });
        QCOMPARE(Boite("Voulez-vous consulter cette aide ?", "Attention", Icone::Question,
                       Boutons::OuiNon, 2),
                 Reponse::Non);
        QCOMPARE(defaut, QString("Non"));
    }

    void echapSurOuiNonRendNon() {
        QuandBoite([](QMessageBox* b) { QTest::keyClick(b, Qt::Key_Escape); });
        QCOMPARE(Boite("Continuer ?", "Maroval", Icone::Question, Boutons::OuiNon, 1),
                 Reponse::Non);
        QCOMPARE(JournalBoites().last().reponse, Reponse::Non);
    }

    void echapSurOKRendOK() {
        QuandBoite([](QMessageBox* b) { QTest::keyClick(b, Qt::Key_Escape); });
        QCOMPARE(Boite("L'impression est annulée.", "Maroval", Icone::Information), Reponse::OK);
    }

    void fermetureSansBoutonRendLaReponseDEchap() {
        QuandBoite([](QMessageBox* b) { b->reject(); });
        QCOMPARE(Boite("Recommencer ?", "Maroval", Icone::Exclamation, Boutons::RecommencerAnnuler),
                 Reponse::Annuler);
    }

    void boiteSansReponseEnEssaiSeFermeAvecUnAvertissement() {
        ui::FixerDelaiEssai(200);
        QTest::ignoreMessage(QtWarningMsg,
                             "Essai : « Boite » (« Personne ne répond ») resté sans réponse "
                             "200 ms, fermé");
        QElapsedTimer chrono;
        chrono.start();
        QCOMPARE(Boite("Personne ne répond", "Maroval", Icone::Question, Boutons::OuiNon),
                 Reponse::Non);
        QVERIFY(chrono.elapsed() < 5000);
    }

    void icones() {
        const QList<QPair<Icone, QMessageBox::Icon>> cas = {
            {Icone::Aucune, QMessageBox::NoIcon},
            {Icone::Information, QMessageBox::Information},
            {Icone::Question, QMessageBox::Question},
            {Icone::Exclamation, QMessageBox::Warning},
            {Icone::Critique, QMessageBox::Critical}};
        for (const auto& [notre, qt] : cas) {
            QMessageBox::Icon vue = QMessageBox::NoIcon;
            QuandBoite([&vue](QMessageBox* b) {
                vue = b->icon();
                b->button(QMessageBox::Ok)->click();
            });
            Boite("x", "Maroval", notre);
            QCOMPARE(vue, qt);
        }
    }

    void libellesDesReponses() {
        QCOMPARE(LibelleReponse(Reponse::OK), QString("OK"));
        QCOMPARE(LibelleReponse(Reponse::Annuler), QString("Annuler"));
        QCOMPARE(LibelleReponse(Reponse::Oui), QString("Oui"));
        QCOMPARE(LibelleReponse(Reponse::Non), QString("Non"));
        QCOMPARE(LibelleReponse(Reponse::Recommencer), QString("Recommencer"));
        QVERIFY(ReponsePossible(Boutons::OuiNonAnnuler, Reponse::Annuler));
        QVERIFY(!ReponsePossible(Boutons::OuiNon, Reponse::Annuler));
        QVERIFY(!ReponsePossible(Boutons::OK, Reponse::Oui));
    }

    // Lancé seul dans un processus fils par le test suivant.
    void enfantReponseHorsBoutons() {
        if (!support::EstProcessusFils()) QSKIP("exécuté seulement comme processus fils");
        RepondreBoite(Reponse::Oui);
        Boite("Information seule", "Maroval", Icone::Information, Boutons::OK);
    }

    void reponseHorsBoutonsArreteLeTestClairement() {
        const support::ResultatFils fils =
            support::LancerFonctionEnFils("enfantReponseHorsBoutons");
        QVERIFY(fils.termine);
        QVERIFY(fils.plante || fils.code != 0);
        // QtTest écrit le message fatal dans son journal, sur la sortie standard.
        const QString tout = fils.sortie + fils.erreurs;
        QVERIFY2(tout.contains("la réponse prévue « Oui » n'est pas un bouton de la boîte"),
                 qPrintable(tout));
    }
};

QTEST_MAIN(TestBoite)
#include "test_ui_boite.moc"
