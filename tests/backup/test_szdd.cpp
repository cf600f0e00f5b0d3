// Le format compressé des disquettes : en-tête, exemples écrits à la main, allers-retours
// sur des données de toutes formes, fichiers abîmés refusés sans rien lire hors du tampon,
// et compatibilité dans les deux sens avec mscompress / msexpand.
#include "support/DossierEssai.h"

#include "base/Szdd.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

namespace {

QByteArray Entete(quint32 taille, char remplace = 0) {
    QByteArray e("SZDD\x88\xf0\x27\x33"
                 "A",
                 9);
    e += remplace;
    for (int i = 0; i < 4; ++i)
        e += static_cast<char>((taille >> (8 * i)) & 0xFF);
    return e;
}

QByteArray Hasard(int taille, quint32 graine) {
    QRandomGenerator g(graine);
    QByteArray d(taille, '\0');
    for (char& c : d)
        c = static_cast<char>(g.bounded(256));
    return d;
}

// Un texte qui se répète un peu, comme une base : des colonnes, des blancs, des montants.
QByteArray Texte(int lignes) {
    QByteArray d;
    for (int i = 0; i < lignes; ++i)
        d += QByteArray("411") + QByteArray::number(10000 + i % 97) + "  Facture client   " +
             QByteArray::number(i * 37 % 10000) + ",00\r\n";
    return d;
}

bool Outil(const char* nom) {
    return QProcess::execute(QStringLiteral("sh"),
                             {"-c", QStringLiteral("command -v %1 > /dev/null").arg(nom)}) == 0;
}

} // namespace

class TestSzdd : public QObject {
    Q_OBJECT
private slots:
    void entete_signatureModeLettreEtTaille() {
        const QByteArray c = CompresserSzdd("bonjour", 'b');
        QCOMPARE(c.left(14), Entete(7, 'b'));
        QCOMPARE(CompresserSzdd(QByteArray()), Entete(0));
    }

    // Exemples écrits à la main : huit lettres telles quelles ; une copie de la fenêtre de
    // départ (des espaces) ; une copie qui se recouvre, comme « hello hello hello ».
    void exemples_ecritsALaMain() {
        QByteArray sortie;
        QVERIFY(DecompresserSzdd(Entete(8) + "\xff"
                                             "ABCDEFGH",
                                 sortie));
        QCOMPARE(sortie, QByteArray("ABCDEFGH"));
        // Drapeau 0 : position 0xFF0, longueur 2 + 3 = 5, prise dans les espaces du départ.
        QVERIFY(DecompresserSzdd(Entete(5) + QByteArray("\x00\xf0\xf2", 3), sortie));
        QCOMPARE(sortie, QByteArray("     "));
        // « hello » (position 0xFF0 à 0xFF5), puis douze octets copiés depuis 0xFF0.
        const QByteArray attendu = "hello hello hello world";
        QByteArray c = Entete(23) +
                       "\xbf"
                       "hello " +
                       QByteArray("\xf0\xf9", 2) + "w" +
                       "\x0f"
                       "orld";
        QVERIFY(DecompresserSzdd(c, sortie));
        QCOMPARE(sortie, attendu);
    }

    void allersRetours_donneesDeToutesFormes() {
        const QList<QByteArray> jeux = {QByteArray(),
                                        QByteArray("x"),
                                        QByteArray(100000, 'a'),
                                        QByteArray(5000, ' '),
                                        Texte(20000),
                                        Hasard(70000, 7),
                                        Hasard(3, 9) + QByteArray(9000, '\0') + Hasard(4096, 11) +
                                            Hasard(4096, 11)};
        for (const QByteArray& d : jeux) {
            const QByteArray c = CompresserSzdd(d);
            QByteArray relu;
            QString erreur;
            QVERIFY2(DecompresserSzdd(c, relu, &erreur), qPrintable(erreur));
            QCOMPARE(relu, d);
        }
        // Ce qui se répète se compresse vraiment.
        QVERIFY(CompresserSzdd(Texte(20000)).size() < Texte(20000).size() / 3);
        QVERIFY(CompresserSzdd(QByteArray(100000, 'a')).size() < 20000);
    }

    void fichiersAbimes_refusesSansRienLireDeTrop() {
        QByteArray sortie;
        QString erreur;
        QVERIFY(!DecompresserSzdd("SZDD", sortie, &erreur));
        QVERIFY(!DecompresserSzdd(QByteArray(40, 'x'), sortie, &erreur));
        QCOMPARE(erreur, QStringLiteral("le fichier n'est pas un fichier compressé de disquette"));
        QByteArray autreMode = CompresserSzdd("abc");
        autreMode[8] = 'B';
        QVERIFY(!DecompresserSzdd(autreMode, sortie, &erreur));
        // Tronqué : chaque longueur plus courte que le tout est refusée.
        const QByteArray complet = CompresserSzdd(Texte(300));
        for (qsizetype n = 14; n < complet.size(); n += 7) {
            QVERIFY(!DecompresserSzdd(complet.left(n), sortie, &erreur));
            QCOMPARE(erreur, QStringLiteral("le fichier compressé est tronqué ou abîmé"));
            QVERIFY(sortie.isEmpty());
        }
        // Une taille annoncée énorme n'est pas allouée.
        QVERIFY(!DecompresserSzdd(Entete(0xFFFFFFFFu) + "\xff"
                                                        "a",
                                  sortie, &erreur, 1 << 20));
        QCOMPARE(erreur, QStringLiteral("la taille annoncée du fichier est invraisemblable"));
        // Des octets quelconques après l'en-tête : jamais plus que la taille annoncée.
        for (quint32 graine = 1; graine < 200; ++graine) {
            const QByteArray c = Entete(500) + Hasard(static_cast<int>(graine % 700), graine);
            if (DecompresserSzdd(c, sortie)) QCOMPARE(sortie.size(), 500);
        }
    }

    // Ce que nous compressons, msexpand le lit ; ce que mscompress écrit, nous le lisons.
    void compatibleAvecMscompressEtMsexpand() {
        if (!Outil("msexpand") || !Outil("mscompress"))
            QFAIL("mscompress et msexpand manquent : scripts/dependances.sh les installe");
        support::DossierEssai dossier;
        const QList<QByteArray> jeux = {Texte(5000), Hasard(20000, 3), QByteArray(30000, 'z'),
                                        QByteArray("hello hello hello world")};
        int n = 0;
        for (const QByteArray& d : jeux) {
            ++n;
            // Nous vers msexpand.
            const QString nous = dossier.Fichier(QStringLiteral("nous%1.md_").arg(n));
            QFile f(nous);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(CompresserSzdd(d, 'b'));
            f.close();
            QProcess expand;
            expand.setStandardInputFile(nous);
            expand.start(QStringLiteral("msexpand"), {});
            QVERIFY(expand.waitForFinished(20000));
            QCOMPARE(expand.exitCode(), 0);
            QCOMPARE(expand.readAllStandardOutput(), d);
            // mscompress vers nous.
            const QString brut = dossier.Fichier(QStringLiteral("eux%1.mdb").arg(n));
            QFile g(brut);
            QVERIFY(g.open(QIODevice::WriteOnly));
            g.write(d);
            g.close();
            QProcess compress;
            compress.setWorkingDirectory(dossier.Chemin());
            compress.start(QStringLiteral("mscompress"), {QStringLiteral("eux%1.mdb").arg(n)});
            QVERIFY(compress.waitForFinished(20000));
            QCOMPARE(compress.exitCode(), 0);
            QFile eux(brut + QLatin1Char('_'));
            QVERIFY(eux.open(QIODevice::ReadOnly));
            QByteArray relu;
            QString erreur;
            QVERIFY2(DecompresserSzdd(eux.readAll(), relu, &erreur), qPrintable(erreur));
            QCOMPARE(relu, d);
        }
    }
};

QTEST_GUILESS_MAIN(TestSzdd)
#include "test_szdd.moc"
