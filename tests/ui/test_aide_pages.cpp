// Chaque numéro d'aide que le programme utilise a sa page, livrée avec lui ; aucun lien des
// pages ne mène nulle part ; l'index les atteint toutes et commence par l'initiation ; F1
// ouvre la page de l'écran, ou celle de l'écran du dessous, ou l'index.
#include "EcransEssai.h"
#include "support/DossierEssai.h"
#include "support/PiloteModal.h"
#include "ui/Aide.h"
#include "ui/Dialogues.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace ui;
using namespace support;

namespace {

QString Sources() {
    return qEnvironmentVariable("MAROVAL_SOURCES");
}

QString DossierAide() {
    return Sources() + QStringLiteral("/data/aide");
}

QString Lire(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// Les numéros de contexte écrits dans le code : appels avec un nombre, et constantes nommées
// d'après l'aide qu'on leur passe.
QMap<int, QString> ContextesDuCode() {
    static const QRegularExpression appel(
        QStringLiteral("(?:FixerContexteAide|AfficherAide)\\(\\s*(\\d+)\\s*\\)"));
    static const QRegularExpression constante(
        QStringLiteral("constexpr int (?:Aide|Page)\\w*\\s*=\\s*(\\d+)\\s*;"));
    QMap<int, QString> contextes;
    QDirIterator it(Sources() + QStringLiteral("/src"), {"*.cpp", "*.h"}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString chemin = it.next();
        const QString texte = Lire(chemin);
        for (const QRegularExpression* re : {&appel, &constante}) {
            auto m = re->globalMatch(texte);
            while (m.hasNext())
                contextes.insert(m.next().captured(1).toInt(),
                                 QDir(Sources()).relativeFilePath(chemin));
        }
    }
    return contextes;
}

QStringList Liens(const QString& html) {
    static const QRegularExpression lien(QStringLiteral("href\\s*=\\s*\"([^\"]*)\""));
    QStringList liens;
    auto m = lien.globalMatch(html);
    while (m.hasNext())
        liens << m.next().captured(1);
    return liens;
}

} // namespace

class TestAidePages : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY2(!Sources().isEmpty(), "MAROVAL_SOURCES n'est pas défini"); }
    void init() { RemettreServicesAZero(); }
    void cleanup() {
        if (FenetreAide()) FenetreAide()->hide();
    }

    void chaqueContexteDuCode_aSaPage() {
        const QMap<int, QString> contextes = ContextesDuCode();
        // Les écrans d'entrée, de plan, de consultation, de trésorerie... : une vingtaine.
        QVERIFY2(contextes.size() >= 20, qPrintable(QString::number(contextes.size())));
        QVERIFY(contextes.contains(9));
        QVERIFY(contextes.contains(41));
        QStringList manquantes;
        for (auto i = contextes.cbegin(); i != contextes.cend(); ++i) {
            // La page livrée dans le programme, et sa source.
            if (!QFile::exists(PageAide(i.key())) ||
                !QFile::exists(DossierAide() + QStringLiteral("/%1.html").arg(i.key())))
                manquantes << QStringLiteral("%1 (%2)").arg(i.key()).arg(i.value());
        }
        QVERIFY2(manquantes.isEmpty(), qPrintable("pages absentes : " + manquantes.join(", ")));
    }

    void chaquePage_titreEtRetourAuSommaire() {
        const QStringList pages = QDir(DossierAide()).entryList({"*.html"}, QDir::Files);
        QVERIFY(pages.size() >= 20);
        for (const QString& page : pages) {
            const QString html = Lire(DossierAide() + "/" + page);
            QVERIFY2(html.contains("<meta charset=\"utf-8\">"), qPrintable(page));
            QVERIFY2(QRegularExpression("<title>[^<]+</title>").match(html).hasMatch(),
                     qPrintable(page));
            if (page != QLatin1String("menu.html"))
                QVERIFY2(Liens(html).contains("menu.html"), qPrintable(page));
        }
    }

    void aucunLien_neMeneNullePart() {
        QStringList morts;
        for (const QString& page : QDir(DossierAide()).entryList({"*.html"}, QDir::Files))
            for (const QString& lien : Liens(Lire(DossierAide() + "/" + page))) {
                const QString fichier = lien.section(u'#', 0, 0);
                if (fichier.isEmpty()) continue;
                // Les pages sont livrées dans le programme : un lien reste entre elles.
                if (fichier.contains(u':') || !QFile::exists(DossierAide() + "/" + fichier) ||
                    !QFile::exists(QStringLiteral(":/data/aide/") + fichier))
                    morts << page + " -> " + lien;
            }
        QVERIFY2(morts.isEmpty(), qPrintable(morts.join(", ")));
    }

    void index_atteintChaquePage_etCommenceParLInitiation() {
        const QStringList liens = Liens(Lire(DossierAide() + "/menu.html"));
        QVERIFY(!liens.isEmpty());
        QCOMPARE(liens.first(), QStringLiteral("40.html"));
        QStringList absentes;
        for (const QString& page : QDir(DossierAide()).entryList({"*.html"}, QDir::Files))
            if (page != QLatin1String("menu.html") && !liens.contains(page)) absentes << page;
        QVERIFY2(absentes.isEmpty(), qPrintable("hors de l'index : " + absentes.join(", ")));
    }

    // F1 : la page de l'écran ; sans page, celle de l'écran du dessous ; sinon l'index.
    void f1_ouvreLaPageDeLEcran() {
        EcranEssai dessous("Dessous", nullptr);
        dessous.FixerContexteAide(9);
        dessous.FixerDebutChaine(true);
        EcranEssai dessus("Dessus", nullptr, &dessous);
        dessus.FixerContexteAide(0);
        EcranEssai seul("Seul", nullptr);
        QStringList vus;
        const auto f1 = [&vus](QWidget* ecran) {
            QTest::keyClick(ecran->findChild<QPushButton*>("Command1"), Qt::Key_F1);
            vus << JournalDialogues().last().detail;
        };
        PiloteModal pilote;
        pilote
            .Attendre("Dessous",
                      [&](QWidget* w) {
                          f1(w);
                          QTimer::singleShot(0, w, [&] { dessus.exec(); });
                      })
            .Attendre("Dessus", [&](QWidget* w) {
                f1(w);
                dessus.FixerContexteAide(13);
                f1(w);
                // « &Quitter » ferme la chaîne entière.
                CliquerBouton(w, "Command3");
            });
        pilote.Demarrer();
        dessous.exec();
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(vus, (QStringList{"9", "9", "13"}));
        QVERIFY(JournalDialogues().last().accepte);

        PiloteModal autre;
        autre.Attendre("Seul", [&](QWidget* w) {
            QTest::keyClick(w, Qt::Key_F1);
            vus << JournalDialogues().last().resultat;
            CliquerBouton(w, "Command3");
        });
        autre.Demarrer();
        seul.exec();
        QVERIFY2(autre.AttendreFin(), qPrintable(autre.Echec()));
        QCOMPARE(vus.last(), PageAideIndex());
    }
};

QTEST_MAIN(TestAidePages)
#include "test_aide_pages.moc"
