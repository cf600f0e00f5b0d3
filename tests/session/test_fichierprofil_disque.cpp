// Le fichier de profil maroval.ini sur le disque : fichier absent, création, lignes gardées,
// relecture à chaque appel, durabilité, droits, lien symbolique et échecs.

#include "session/FichierProfil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

QByteArray Contenu(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<illisible>");
}

bool Deposer(const QString& chemin, const QByteArray& contenu) {
    QFile f(chemin);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(contenu) == contenu.size();
}

} // namespace

class TestFichierProfilDisque : public QObject {
    Q_OBJECT

private slots:
    void init();
    void fichierAbsent_donneLesValeursParDefaut();
    void ecrire_creeLeFichier();
    void ecrire_dernumSeRelitDerNum();
    void ecrire_gardeLesAutresLignesOctetPourOctet();
    void lire_relitLeFichierAChaqueAppel();
    void ecrire_echecQuandLeDossierParentEstUnFichier();
    void ecrire_echecQuandLeCheminEstUnDossier();
    void ecrire_echecEnCoursDEcritureLaisseLAncienFichier();
    void ecrire_neLaissePasDeFichierTemporaire();
    void ecrire_gardeLesDroitsDuFichier();
    void ecrire_suitLeLienSymbolique();
    void effacer_retireLaCleDuFichier();

private:
    std::unique_ptr<QTemporaryDir> dossier;
    QString Ini() const { return dossier->filePath(QStringLiteral("maroval.ini")); }
};

void TestFichierProfilDisque::init() {
    dossier = std::make_unique<QTemporaryDir>();
    QVERIFY(dossier->isValid());
}

void TestFichierProfilDisque::fichierAbsent_donneLesValeursParDefaut() {
    const FichierProfil profil(Ini());
    QCOMPARE(profil.Lire("Securite", "Erreur", "0"), QStringLiteral("0"));
    QCOMPARE(profil.Lire("Options", "SymbEu", "E"), QStringLiteral("E"));
    QCOMPARE(profil.Lire("Options", "NbDecimales", "2"), QStringLiteral("2"));
    QCOMPARE(profil.Lire("Controle", "Debug", "0"), QStringLiteral("0"));
    QCOMPARE(profil.Lire("Plans Types", "PlanChoisi1"), QString());
    QVERIFY(!QFile::exists(Ini())); // lire ne crée rien
}

void TestFichierProfilDisque::ecrire_creeLeFichier() {
    FichierProfil profil(Ini());
    QVERIFY(profil.Ecrire("Securite", "Erreur", "1"));
    QCOMPARE(Contenu(Ini()), QByteArray("[Securite]\nErreur=1\n"));
}

void TestFichierProfilDisque::ecrire_dernumSeRelitDerNum() {
    FichierProfil profil(Ini());
    QVERIFY(profil.Ecrire("Securite", "Dernum", "1234"));
    QCOMPARE(profil.Lire("Securite", "DerNum", "defaut"), QStringLiteral("1234"));
    QVERIFY(profil.Ecrire("SECURITE", "DERNUM", "1235"));
    QCOMPARE(profil.Lire("securite", "dernum", "defaut"), QStringLiteral("1235"));
    QCOMPARE(Contenu(Ini()), QByteArray("[Securite]\nDernum=1235\n"));
}

void TestFichierProfilDisque::ecrire_gardeLesAutresLignesOctetPourOctet() {
    const QByteArray avant("\xEF\xBB\xBF; Configuration de Maroval\r\n[Securite]\r\n"
                           "Erreur=0\r\nCleCpt=012024\r\n\r\n[Options]\r\n  SymbEu = E  \r\n"
                           "ligne sans egal\r\n[Plans Types]\r\nPlanChoisi1=0001\r\n");
    QVERIFY(Deposer(Ini(), avant));
    FichierProfil profil(Ini());
    QVERIFY(profil.Ecrire("Securite", "Erreur", "2"));
    QVERIFY(profil.Ecrire("Plans Types", "PlanChoisi2", "0003"));
    QByteArray attendu = avant;
    attendu.replace("Erreur=0", "Erreur=2");
    attendu.append("PlanChoisi2=0003\r\n");
    QCOMPARE(Contenu(Ini()), attendu);
    QCOMPARE(profil.Lire("Options", "SymbEu"), QStringLiteral("E"));
}

void TestFichierProfilDisque::lire_relitLeFichierAChaqueAppel() {
    const FichierProfil profil(Ini());
    QVERIFY(Deposer(Ini(), "[Securite]\nErreur=1\n"));
    QCOMPARE(profil.Lire("Securite", "Erreur", "0"), QStringLiteral("1"));
    QVERIFY(Deposer(Ini(), "[Securite]\nErreur=2\n"));
    QCOMPARE(profil.Lire("Securite", "Erreur", "0"), QStringLiteral("2"));
    QVERIFY(QFile::remove(Ini()));
    QCOMPARE(profil.Lire("Securite", "Erreur", "0"), QStringLiteral("0"));
}

// Même en superutilisateur, un fichier ordinaire ne peut pas servir de dossier.
void TestFichierProfilDisque::ecrire_echecQuandLeDossierParentEstUnFichier() {
    const QString faux = dossier->filePath(QStringLiteral("fichier"));
    QVERIFY(Deposer(faux, "pas un dossier"));
    FichierProfil profil(faux + QStringLiteral("/maroval.ini"));
    QVERIFY(!profil.Ecrire("Securite", "Erreur", "1"));
    QVERIFY(!profil.Effacer("Securite", "Erreur"));
    QCOMPARE(profil.Lire("Securite", "Erreur", "0"), QStringLiteral("0"));
    QCOMPARE(Contenu(faux), QByteArray("pas un dossier"));
}

void TestFichierProfilDisque::ecrire_echecQuandLeCheminEstUnDossier() {
    QVERIFY(QDir(dossier->path()).mkdir(QStringLiteral("maroval.ini")));
    FichierProfil profil(Ini());
    QVERIFY(!profil.Ecrire("Securite", "Erreur", "1"));
    QCOMPARE(profil.Lire("Securite", "Erreur", "0"), QStringLiteral("0"));
    QVERIFY(QFileInfo(Ini()).isDir());
    QCOMPARE(QDir(dossier->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size(), 1);
}

// Une limite de taille de fichier fait échouer l'écriture au milieu, même en superutilisateur.
void TestFichierProfilDisque::ecrire_echecEnCoursDEcritureLaisseLAncienFichier() {
    const QByteArray avant("[Securite]\nErreur=0\n");
    QVERIFY(Deposer(Ini(), avant));
    FichierProfil profil(Ini());
    const QString longue(4096, u'x');

    rlimit ancienne{};
    QVERIFY(::getrlimit(RLIMIT_FSIZE, &ancienne) == 0);
    const auto ancienSignal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit petite = ancienne;
    petite.rlim_cur = 64;
    QVERIFY(::setrlimit(RLIMIT_FSIZE, &petite) == 0);
    const bool ecrit = profil.Ecrire("Securite", "Dernum", longue);
    ::setrlimit(RLIMIT_FSIZE, &ancienne);
    std::signal(SIGXFSZ, ancienSignal);

    QVERIFY(!ecrit);
    QCOMPARE(Contenu(Ini()), avant);
    QCOMPARE(QDir(dossier->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList{QStringLiteral("maroval.ini")});
    QVERIFY(profil.Ecrire("Securite", "Dernum", longue)); // sans limite, l'écriture passe
    QCOMPARE(profil.Lire("Securite", "Dernum"), longue);
}

void TestFichierProfilDisque::ecrire_neLaissePasDeFichierTemporaire() {
    FichierProfil profil(Ini());
    for (int i = 0; i < 20; ++i)
        QVERIFY(profil.Ecrire("Securite", "Erreur", QString::number(i % 3)));
    QCOMPARE(QDir(dossier->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList{QStringLiteral("maroval.ini")});
    QCOMPARE(profil.Lire("Securite", "Erreur"), QStringLiteral("1"));
}

void TestFichierProfilDisque::ecrire_gardeLesDroitsDuFichier() {
    QVERIFY(Deposer(Ini(), "[A]\nx=1\n"));
    QVERIFY(::chmod(QFile::encodeName(Ini()).constData(), 0640) == 0);
    FichierProfil profil(Ini());
    QVERIFY(profil.Ecrire("A", "x", "2"));
    struct stat etat {};
    QVERIFY(::stat(QFile::encodeName(Ini()).constData(), &etat) == 0);
    QCOMPARE(etat.st_mode & 07777, 0640u);
}

void TestFichierProfilDisque::ecrire_suitLeLienSymbolique() {
    const QString vrai = dossier->filePath(QStringLiteral("vrai.ini"));
    QVERIFY(Deposer(vrai, "[A]\nx=1\n"));
    QVERIFY(QFile::link(vrai, Ini()));
    FichierProfil profil(Ini());
    QVERIFY(profil.Ecrire("A", "x", "2"));
    QVERIFY(QFileInfo(Ini()).isSymLink());
    QCOMPARE(Contenu(vrai), QByteArray("[A]\nx=2\n"));
}

void TestFichierProfilDisque::effacer_retireLaCleDuFichier() {
    QVERIFY(Deposer(Ini(), "[Plans Types]\nPlanChoisi1=0001\nPlanChoisi2=0002\n"));
    FichierProfil profil(Ini());
    QVERIFY(profil.Effacer("plans types", "planchoisi1"));
    QCOMPARE(Contenu(Ini()), QByteArray("[Plans Types]\nPlanChoisi2=0002\n"));
    QCOMPARE(profil.Lire("Plans Types", "PlanChoisi1", "aucun"), QStringLiteral("aucun"));
}

QTEST_GUILESS_MAIN(TestFichierProfilDisque)
#include "test_fichierprofil_disque.moc"
