// Une boîte demandée sans interface graphique ne plante pas : message sur la sortie
// d'erreur, réponse d'Echap, et le journal la note.
#include "ui/Boite.h"

#include <QtTest>

using namespace ui;

class TestBoiteSansFenetre : public QObject {
    Q_OBJECT
private slots:
    void boiteSansInterfaceRendLaReponseDEchap() {
        ViderJournalBoites();
        QTest::ignoreMessage(QtWarningMsg, "Maroval : Continuer ?");
        QCOMPARE(Boite("Continuer ?", "Maroval", Icone::Question, Boutons::OuiNon), Reponse::Non);
        QTest::ignoreMessage(QtWarningMsg, "Attention : Fichier absent");
        QCOMPARE(Boite("Fichier absent", "Attention", Icone::Exclamation, Boutons::OKAnnuler),
                 Reponse::Annuler);
        QCOMPARE(JournalBoites().size(), 2);
        QCOMPARE(JournalBoites()[0].reponse, Reponse::Non);
    }

    void reponsesDAvanceServentAussiSansInterface() {
        RepondreBoite(Reponse::Oui);
        QCOMPARE(Boite("Continuer ?", "Maroval", Icone::Question, Boutons::OuiNon), Reponse::Oui);
    }
};

QTEST_GUILESS_MAIN(TestBoiteSansFenetre)
#include "test_ui_boite_sans_fenetre.moc"
