// Maroval sur un bureau Linux : l'installation dans un dossier à part pose le programme, son
// compresseur, l'entrée de menu, l'icône, le type des sauvegardes et la description ; chacun
// passe l'outil de contrôle du bureau ; une sauvegarde *.sav est reconnue comme la nôtre et
// s'ouvre avec Maroval ; le paquet Debian contient tout cela et dit ses dépendances.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Sortie {
    int code = -1;
    QString texte;
};

Sortie Lancer(const QString& programme, const QStringList& arguments,
              const QProcessEnvironment& env = QProcessEnvironment::systemEnvironment()) {
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(programme, arguments);
    if (!p.waitForFinished(120000)) return {-1, QStringLiteral("délai dépassé : ") + programme};
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromUtf8(p.readAll())};
}

QString Construction() {
    return qEnvironmentVariable("MAROVAL_CONSTRUCTION");
}

QString Cmake() {
    return qEnvironmentVariable("MAROVAL_CMAKE", QStringLiteral("cmake"));
}

// Un outil du bureau qui manque fait échouer l'essai avec son nom : le script des
// dépendances l'installe.
QString Outil(const QString& nom) {
    return QStandardPaths::findExecutable(nom);
}

} // namespace

class TestBureau : public QObject {
    Q_OBJECT
    QTemporaryDir racine;
    QString prefixe;

private slots:
    void initTestCase() {
        QVERIFY2(!Construction().isEmpty(), "MAROVAL_CONSTRUCTION n'est pas défini");
        QVERIFY(racine.isValid());
        prefixe = racine.filePath(QStringLiteral("usr"));
        const Sortie s = Lancer(Cmake(), {"--install", Construction(), "--prefix", prefixe});
        QVERIFY2(s.code == 0, qPrintable(s.texte));
    }

    void installation_poseChaqueFichier() {
        for (const char* f : {"bin/maroval", "libexec/maroval/maroval-szdd",
                              "share/applications/fr.maroval.Maroval.desktop",
                              "share/icons/hicolor/scalable/apps/fr.maroval.Maroval.svg",
                              "share/mime/packages/fr.maroval.Maroval.xml",
                              "share/metainfo/fr.maroval.Maroval.metainfo.xml"})
            QVERIFY2(QFile::exists(prefixe + "/" + QString::fromLatin1(f)), f);
        QVERIFY(QFileInfo(prefixe + "/bin/maroval").isExecutable());
        // L'icône est un vrai dessin SVG.
        QFile icone(prefixe + "/share/icons/hicolor/scalable/apps/fr.maroval.Maroval.svg");
        QVERIFY(icone.open(QIODevice::ReadOnly));
        const QByteArray svg = icone.readAll();
        QVERIFY(svg.contains("<svg") && svg.contains("viewBox"));
    }

    void entreeDeMenu_valide() {
        const QString outil = Outil("desktop-file-validate");
        QVERIFY2(!outil.isEmpty(), "desktop-file-validate absent");
        const QString entree = prefixe + "/share/applications/fr.maroval.Maroval.desktop";
        const Sortie s = Lancer(outil, {entree});
        QVERIFY2(s.code == 0 && s.texte.trimmed().isEmpty(), qPrintable(s.texte));
        QFile f(entree);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QString texte = QString::fromUtf8(f.readAll());
        for (const char* ligne : {"Name[fr]=Maroval", "Comment[fr]=", "Categories=Office;Finance;",
                                  "MimeType=application/x-maroval-sauvegarde;", "Exec=maroval %f",
                                  "Icon=fr.maroval.Maroval"})
            QVERIFY2(texte.contains(QString::fromUtf8(ligne)), ligne);
    }

    void descriptionPourLesLogitheques_valide() {
        const QString outil = Outil("appstreamcli");
        QVERIFY2(!outil.isEmpty(), "appstreamcli absent");
        const Sortie s =
            Lancer(outil, {"validate", "--no-net",
                           prefixe + "/share/metainfo/fr.maroval.Maroval.metainfo.xml"});
        QVERIFY2(s.code == 0, qPrintable(s.texte));
    }

    // Une sauvegarde double-cliquée : le bureau la reconnaît comme une sauvegarde de Maroval
    // et l'ouvre avec Maroval.
    void sauvegarde_reconnueEtOuverteParMaroval() {
        for (const char* nom : {"update-mime-database", "update-desktop-database", "xdg-mime"})
            QVERIFY2(!Outil(nom).isEmpty(), nom);
        QVERIFY(Lancer(Outil("update-mime-database"), {prefixe + "/share/mime"}).code == 0);
        QVERIFY(Lancer(Outil("update-desktop-database"), {prefixe + "/share/applications"}).code ==
                0);
        // Une archive zip vide suffit : c'est le nom qui compte, le contenu reste un zip.
        const QString sauvegarde = racine.filePath(QStringLiteral("Boulangerie 2024.sav"));
        QFile f(sauvegarde);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QByteArray("PK\x05\x06", 4) + QByteArray(18, '\0'));
        f.close();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("XDG_DATA_DIRS", prefixe + "/share:/usr/share");
        env.insert("XDG_DATA_HOME", racine.filePath("home-share"));
        env.insert("XDG_CONFIG_HOME", racine.filePath("home-config"));
        env.insert("XDG_CURRENT_DESKTOP", "GNOME");
        const Sortie type = Lancer(Outil("xdg-mime"), {"query", "filetype", sauvegarde}, env);
        QCOMPARE(type.texte.trimmed(), QStringLiteral("application/x-maroval-sauvegarde"));
        const Sortie appli = Lancer(Outil("xdg-mime"),
                                    {"query", "default", "application/x-maroval-sauvegarde"}, env);
        QCOMPARE(appli.texte.trimmed(), QStringLiteral("fr.maroval.Maroval.desktop"));
    }

    void paquetDebian_contenuEtDependances() {
        QTemporaryDir sortie;
        const Sortie s = Lancer(
            QFileInfo(Cmake()).dir().filePath("cpack"),
            {"--config", Construction() + "/CPackConfig.cmake", "-G", "DEB", "-B", sortie.path()});
        QVERIFY2(s.code == 0, qPrintable(s.texte));
        const QStringList paquets = QDir(sortie.path()).entryList({"maroval_*.deb"}, QDir::Files);
        QCOMPARE(paquets.size(), 1);
        const QString deb = sortie.filePath(paquets.first());
        const Sortie info = Lancer(Outil("dpkg-deb"), {"--info", deb});
        QVERIFY2(info.code == 0, qPrintable(info.texte));
        QVERIFY(info.texte.contains("Package: maroval"));
        QVERIFY(info.texte.contains("Architecture: amd64") || info.texte.contains("Architecture:"));
        // Les bibliothèques dont le programme a besoin, lues par dpkg-shlibdeps.
        for (const char* d : {"libqt6widgets6", "libsqlite3-0", "libzip4"})
            QVERIFY2(info.texte.contains(QString::fromLatin1(d)), qPrintable(info.texte));
        const Sortie contenu = Lancer(Outil("dpkg-deb"), {"--contents", deb});
        QVERIFY2(contenu.code == 0, qPrintable(contenu.texte));
        for (const char* f : {"./usr/bin/maroval", "./usr/libexec/maroval/maroval-szdd",
                              "./usr/share/applications/fr.maroval.Maroval.desktop",
                              "./usr/share/icons/hicolor/scalable/apps/fr.maroval.Maroval.svg",
                              "./usr/share/mime/packages/fr.maroval.Maroval.xml",
                              "./usr/share/metainfo/fr.maroval.Maroval.metainfo.xml"})
            QVERIFY2(contenu.texte.contains(QString::fromLatin1(f)), f);
    }
};

QTEST_GUILESS_MAIN(TestBureau)
#include "test_bureau.moc"
