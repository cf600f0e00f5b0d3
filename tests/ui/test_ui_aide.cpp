// Aide par numéro de contexte, index, page absente ; captures d'écran de la boîte et de
// l'aide (fichiers PNG dans $MAROVAL_CAPTURES, sinon dans le dossier temporaire).
#include "EcransEssai.h"
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/PiloteModal.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QMessageBox>
#include <QTextBrowser>
#include <QTextDocument>
#include <QtTest>

using namespace ui;
using namespace support;

namespace {

QString TexteMontre() {
    auto* navigateur = FenetreAide()->findChild<QTextBrowser*>("TexteAide");
    return navigateur ? navigateur->toPlainText() : QString();
}

QString TexteDeLaPage(const QString& chemin) {
    QFile page(chemin);
    if (!page.open(QIODevice::ReadOnly)) return QString();
    QTextDocument document;
    document.setHtml(QString::fromUtf8(page.readAll()));
    return document.toPlainText();
}

} // namespace

class TestAide : public QObject {
    Q_OBJECT
private slots:
    void init() { RemettreServicesAZero(); }
    void cleanup() {
        if (FenetreAide()) FenetreAide()->hide();
    }

    void indexMontreLaPageMenu() {
        AfficherAideIndex();
        QDialog* fenetre = FenetreAide();
        QVERIFY(fenetre);
        QCOMPARE(fenetre->objectName(), QString("Aide"));
        QVERIFY(fenetre->isVisible());
        QVERIFY(!fenetre->isModal());
        QVERIFY(TexteMontre().contains("Aide de Maroval"));
        QCOMPARE(TexteMontre(), TexteDeLaPage(":/data/aide/menu.html"));
        QCOMPARE(JournalDialogues().size(), 1);
        QCOMPARE(JournalDialogues()[0].dialogue, Dialogue::AideIndex);
        QCOMPARE(JournalDialogues()[0].resultat, QString(":/data/aide/menu.html"));
        QVERIFY(JournalDialogues()[0].accepte);
    }

    void pageAbsenteMontreUnTexteFrancais() {
        AfficherAide(9999);
        QVERIFY(FenetreAide()->isVisible());
        QVERIFY(TexteMontre().contains("Aucune aide n'est encore écrite pour cet écran."));
        QCOMPARE(JournalDialogues().last().dialogue, Dialogue::Aide);
        QCOMPARE(JournalDialogues().last().detail, QString("9999"));
        QCOMPARE(JournalDialogues().last().resultat, QString(":/data/aide/9999.html"));
        QVERIFY(!JournalDialogues().last().accepte);
        QCOMPARE(PageAide(11), QString(":/data/aide/11.html"));
    }

    void pageDUnContexteEcrite() {
        // Les pages viennent avec les écrans : la première trouvée suffit.
        const QStringList pages =
            QDir(":/data/aide").entryList({"[0-9]*.html"}, QDir::Files, QDir::Name);
        if (pages.isEmpty()) QSKIP("aucune page de contexte livrée");
        const int contexte = pages.first().section('.', 0, 0).toInt();
        AfficherAide(contexte);
        QCOMPARE(TexteMontre(), TexteDeLaPage(PageAide(contexte)));
        QVERIFY(JournalDialogues().last().accepte);
        QCOMPARE(JournalDialogues().last().detail, QString::number(contexte));
    }

    void lienVersUnePageAbsente() {
        AfficherAideIndex();
        auto* navigateur = FenetreAide()->findChild<QTextBrowser*>("TexteAide");
        navigateur->setSource(QUrl("qrc:/data/aide/404.html"));
        QVERIFY(TexteMontre().contains("Aucune aide n'est encore écrite pour cet écran."));
    }

    void aideDepuisUnEcranModalLuiEstRattachee() {
        EcranEssai ecran("Saislog", nullptr);
        connect(ecran.findChild<QPushButton*>("Command1"), &QPushButton::clicked, &ecran,
                [] { AfficherAide(9); });
        QWidget* parent = nullptr;
        PiloteModal pilote;
        pilote.Attendre("Saislog", Cliquer("Command1")).AttendreFenetre("Aide", [&](QWidget* aide) {
            parent = aide->parentWidget();
            CliquerBouton(&ecran, "Command2");
        });
        pilote.Demarrer();
        ecran.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        // Sans cela l'écran modal bloquerait la fenêtre d'aide.
        QCOMPARE(parent, static_cast<QWidget*>(&ecran));
        QCOMPARE(JournalDialogues().last().detail, QString("9"));
        // L'écran fermé, l'aide se montre encore.
        AfficherAideIndex();
        QVERIFY(FenetreAide()->isVisible());
        QVERIFY(FenetreAide()->parentWidget() != &ecran);
    }

    void capturesDeLaBoiteEtDeLAide() {
        const QString dossier = DossierCaptures();
        QImage imageBoite;
        PiloteModal pilote;
        pilote.AttendreBoite("Si vous répondez OUI, vous supprimerez 12 écritures ! ! !",
                             [&](QWidget* boite) {
                                 imageBoite = boite->grab().toImage();
                                 CliquerBouton(boite, "Non");
                             });
        pilote.Demarrer();
        QCOMPARE(Boite("Si vous répondez OUI, vous supprimerez 12 écritures ! ! !",
                       "ATTENTION.. DERNIER AVERTISSEMENT", Icone::Critique, Boutons::OuiNon, 2),
                 Reponse::Non);
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(ImageDessinee(imageBoite));
        QVERIFY(imageBoite.save(QDir(dossier).filePath("boite.png")));

        AfficherAideIndex();
        const QImage imageAide = FenetreAide()->grab().toImage();
        QVERIFY(ImageDessinee(imageAide));
        QVERIFY(imageAide.save(QDir(dossier).filePath("aide.png")));
    }
};

QTEST_MAIN(TestAide)
#include "test_ui_aide.moc"
