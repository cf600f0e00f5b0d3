// Les dépendances du code vont dans un seul sens : une inclusion à contre-sens fait échouer
// « make test » avec le fichier, la ligne et la règle qu'elle enfreint.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

// Couches, de bas en haut. Un module peut inclure les modules des couches au-dessous de la
// sienne ; entre modules d'écrans, seulement ceux de la table des écrans ouverts.
const QHash<QString, int>& Couches() {
    static const QHash<QString, int> c = {
        {"base", 0},     {"ui", 1},      {"store", 2},        {"session", 3},  {"posting", 4},
        {"chart", 5},    {"entry", 5},   {"consultation", 5}, {"backup", 5},   {"companies", 5},
        {"yearend", 5},  {"reports", 5}, {"fiscal", 5},       {"treasury", 5}, {"budget", 5},
        {"analytic", 5}, {"fec", 5},     {"releves", 5},      {"tva", 5},
    };
    return c;
}
constexpr int CoucheEcrans = 5;

const char* const NomsCouches[] = {"base", "ui", "store", "session", "posting", "écrans"};

// Les modules d'écrans que chaque module d'écrans ouvre. L'écran principal (companies) ouvre
// tous les autres ; aucun ne l'inclut.
const QHash<QString, QSet<QString>>& EcransOuverts() {
    static const QHash<QString, QSet<QString>> t = {
        {"companies",
         {"chart", "entry", "consultation", "backup", "yearend", "reports", "fiscal", "treasury",
          "budget", "analytic", "fec", "releves", "tva"}},
        {"chart", {"consultation"}},
        {"entry", {"chart", "consultation"}},
        {"consultation", {}},
        {"backup", {}},
        {"yearend", {}},
        {"reports", {"consultation"}},
        {"fiscal", {"reports"}},
        {"treasury", {}},
        {"budget", {}},
        {"analytic", {}},
        {"fec", {"chart"}},
    };
    return t;
}

struct Inclusion {
    QString fichier; // relatif à src/
    int ligne = 0;
    QString cible; // "module/Fichier.h"
};

QString Racine() {
    return qEnvironmentVariable("MAROVAL_SOURCES");
}

QString Module(const QString& chemin) {
    const int barre = chemin.indexOf(u'/');
    return barre < 0 ? QString() : chemin.left(barre);
}

// Chaque #include "module/Fichier.h" des fichiers de dossier (chemins relatifs à dossier).
QList<Inclusion> Inclusions(const QString& dossier, QStringList* avecHasInclude = nullptr) {
    static const QRegularExpression inclusion(QStringLiteral("^\\s*#\\s*include\\s+\"([^\"]+)\""));
    QList<Inclusion> resultat;
    QDirIterator it(dossier, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString chemin = it.next();
        QFile f(chemin);
        if (!f.open(QIODevice::ReadOnly)) continue;
        const QString rel = QDir(dossier).relativeFilePath(chemin);
        int n = 0;
        while (!f.atEnd()) {
            const QString ligne = QString::fromUtf8(f.readLine());
            ++n;
            // Le mot cherché est écrit en deux morceaux pour que ce fichier ne se trouve pas.
            if (avecHasInclude &&
                ligne.contains(QStringLiteral("__has_") + QStringLiteral("include")))
                *avecHasInclude << QStringLiteral("%1:%2").arg(rel).arg(n);
            const auto m = inclusion.match(ligne);
            if (m.hasMatch()) resultat.append({rel, n, m.captured(1)});
        }
    }
    return resultat;
}

// La règle enfreinte par une inclusion de src/, ou rien.
QString Regle(const QString& de, const QString& vers) {
    const auto& couches = Couches();
    if (!couches.contains(de))
        return QStringLiteral("module « %1 » absent de la table des couches : déclarez-le").arg(de);
    if (!couches.contains(vers))
        return QStringLiteral("module « %1 » absent de la table des couches : déclarez-le")
            .arg(vers);
    const int cDe = couches.value(de), cVers = couches.value(vers);
    if (cVers > cDe)
        return QStringLiteral("%1 (couche %2) est au-dessous de %3 (couche %4) : une couche ne "
                              "connaît pas celles du dessus")
            .arg(de, NomsCouches[cDe], vers, NomsCouches[cVers]);
    if (cDe == CoucheEcrans && cVers == CoucheEcrans) {
        if (vers == QLatin1String("companies"))
            return QStringLiteral("aucun écran n'inclut l'écran principal (companies) : c'est lui "
                                  "qui ouvre les autres");
        if (!EcransOuverts().value(de).contains(vers))
            return QStringLiteral("%1 n'ouvre pas les écrans de %2 (table EcransOuverts)")
                .arg(de, vers);
    }
    return {};
}

QStringList Infractions(const QString& src) {
    QStringList infractions;
    for (const Inclusion& i : Inclusions(src)) {
        const QString de = Module(i.fichier), vers = Module(i.cible);
        if (vers.isEmpty() || de == vers) continue;
        // Les en-têtes de bibliothèques (SQLiteCpp/...) ne sont pas des modules.
        if (!QFile::exists(QDir(src).filePath(i.cible))) continue;
        const QString regle = Regle(de, vers);
        if (!regle.isEmpty())
            infractions << QStringLiteral("src/%1:%2 inclut %3 : %4")
                               .arg(i.fichier)
                               .arg(i.ligne)
                               .arg(i.cible, regle);
    }
    return infractions;
}

} // namespace

class TestCouches : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY2(!Racine().isEmpty(), "MAROVAL_SOURCES n'est pas défini");
        QVERIFY(QDir(Racine() + "/src").exists());
    }

    void inclusionsDeSrc_suiventLesCouches() {
        const QStringList infractions = Infractions(Racine() + "/src");
        QVERIFY2(infractions.isEmpty(), qPrintable("\n" + infractions.join('\n')));
    }

    void chaqueModuleDeSrc_estDansLaTable() {
        const QStringList modules =
            QDir(Racine() + "/src").entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString& m : modules)
            QVERIFY2(Couches().contains(m),
                     qPrintable(
                         QStringLiteral("src/%1 : module absent de la table des couches").arg(m)));
    }

    void aucunEcranCherche_parSonEnTete() {
        QStringList lieux;
        Inclusions(Racine() + "/src", &lieux);
        Inclusions(Racine() + "/tests", &lieux);
        Inclusions(Racine() + "/bench", &lieux);
        QVERIFY2(lieux.isEmpty(),
                 qPrintable("inclusion selon la présence d'un en-tête : " + lieux.join(", ")));
    }

    // Chaque écran s'ouvre par son type, jamais cherché par un nom ; aucune entrée ne renvoie
    // à une fonction absente.
    void aucunEcran_ouvertParUnNom() {
        static const QRegularExpression parNom(
            QStringLiteral("OuvrirEcran\\s*\\(\\s*(QStringLiteral|QString|QLatin1String|\")"));
        static const QRegularExpression absente(QStringLiteral("pas encore disponible"),
                                                QRegularExpression::CaseInsensitiveOption);
        QStringList lieux;
        QDirIterator it(Racine() + "/src", {"*.h", "*.cpp", "*.ui"}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile f(it.next());
            QVERIFY(f.open(QIODevice::ReadOnly));
            const QString texte = QString::fromUtf8(f.readAll());
            if (texte.contains(parNom) || texte.contains(absente))
                lieux << QDir(Racine()).relativeFilePath(f.fileName());
        }
        QVERIFY2(lieux.isEmpty(), qPrintable(lieux.join(", ")));
    }

    // Un essai n'emprunte pas les aides d'un autre dossier : ce qui sert à plusieurs est dans
    // tests/support/.
    void essais_nIncluentPasLesAidesDUnAutreDossier() {
        QStringList infractions;
        const QString tests = Racine() + "/tests";
        for (const Inclusion& i : Inclusions(tests)) {
            const QString vers = Module(i.cible);
            const bool autreDossier =
                i.cible.startsWith(QLatin1String("../")) ||
                (!vers.isEmpty() && vers != QLatin1String("support") && vers != Module(i.fichier) &&
                 QFile::exists(QDir(tests).filePath(i.cible)));
            if (autreDossier)
                infractions << QStringLiteral("tests/%1:%2 inclut %3 : une aide commune va dans "
                                              "tests/support/")
                                   .arg(i.fichier)
                                   .arg(i.ligne)
                                   .arg(i.cible);
        }
        QVERIFY2(infractions.isEmpty(), qPrintable("\n" + infractions.join('\n')));
    }

    // La règle elle-même : les cas qui doivent échouer échouent, avec un message clair.
    void regle_refuseLesInclusionsAContreSens() {
        QVERIFY(Regle("store", "session").contains("au-dessous de"));
        QVERIFY(Regle("ui", "store").contains("au-dessous de"));
        QVERIFY(Regle("posting", "backup").contains("au-dessous de"));
        QVERIFY(Regle("base", "ui").contains("au-dessous de"));
        QVERIFY(Regle("consultation", "companies").contains("écran principal"));
        QVERIFY(Regle("consultation", "entry").contains("n'ouvre pas"));
        QVERIFY(Regle("inconnu", "ui").contains("absent de la table"));
        QVERIFY(Regle("session", "store").isEmpty());
        QVERIFY(Regle("entry", "consultation").isEmpty());
        QVERIFY(Regle("companies", "entry").isEmpty());
    }

    void infractions_nommentLeFichierEtLaRegle() {
        QTemporaryDir dossier;
        QDir(dossier.path()).mkpath("src/store");
        QDir(dossier.path()).mkpath("src/session");
        QFile s(dossier.filePath("src/session/Session.h"));
        QVERIFY(s.open(QIODevice::WriteOnly));
        s.close();
        QFile f(dossier.filePath("src/store/Base.cpp"));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("#include \"store/Base.h\"\n\n#include \"session/Session.h\"\n");
        f.close();
        const QStringList infractions = Infractions(dossier.filePath("src"));
        QCOMPARE(infractions.size(), 1);
        QCOMPARE(infractions.first(),
                 QStringLiteral("src/store/Base.cpp:3 inclut session/Session.h : store (couche "
                                "store) est au-dessous de session (couche session) : une couche "
                                "ne connaît pas celles du dessus"));
    }
};

QTEST_GUILESS_MAIN(TestCouches)
#include "test_couches.moc"
