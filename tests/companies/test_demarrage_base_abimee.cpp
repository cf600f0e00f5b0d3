// Démarrage sur une base abîmée, étrangère ou vide, sur une configuration illisible et sur
// un dossier où l'on ne peut pas écrire : une boîte claire, le fichier jamais touché, la
// reprise depuis une vraie sauvegarde, une fin propre au code non nul.

#include "support/DossierEssai.h"
#include "support/Outils.h"
#include "support/ProcessusFils.h"
#include "support/SessionEssai.h"

#include "backup/Historique.h"
#include "backup/Restauration.h"
#include "backup/ZipBiblio.h"
#include "companies/Demarrage.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/ControleBase.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QDir>
#include <QRandomGenerator>
#include <QtTest>
#include <SQLiteCpp/Database.h>

using ui::Reponse;

namespace {

void Ecrire(const QString& chemin, const QByteArray& octets) {
    QFile f(chemin);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(octets), octets.size());
}

// Le démarrage du programme tel que main le mène : le code de fin rendu.
int Demarrer() {
    return ui::ExecuterSousGarde([] { return Demarrage({"maroval"}) ? 0 : ui::CodeFin(); });
}

const QDateTime Moment(QDate(2026, 11, 23), QTime(10, 15, 0));

} // namespace

class TestDemarrageBaseAbimee : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    QString archives;

    QString Base_() const { return dossier->Fichier("maroval.mdb"); }

    // Une base saine avec une société, sa sauvegarde dans un dossier à côté, notée dans
    // l'historique ; la base reste fermée.
    void PreparerBaseEtSauvegarde() {
        OuvrirBase(dossier->Chemin());
        essai::Societe(QStringLiteral("Boulangerie Martin"));
        FermerBase();
        FichierProfil(CheminIni())
            .Ecrire(QStringLiteral("Options"), QStringLiteral("SymbEu"), QStringLiteral("E"));
        const QString archive = archives + QStringLiteral("/hier.sav");
        Zipper(dossier->Chemin(), QStringLiteral("maroval.mdb"), archive);
        EcrireHistorique(CheminHistorique(),
                         {{1, QStringLiteral("20261122180400"), 0, archive, 1000}});
    }

    // Les dégâts d'un arrêt de courant ou d'un autre programme, sur la base préparée.
    void Abimer(const QString& genre) {
        QByteArray o = essai::LireFichier(Base_());
        if (genre == "pages") {
            // Des pages du milieu écrasées : le fichier reste une base, mais plus saine.
            for (qsizetype i = o.size() / 2; i < o.size() / 2 + 12000; ++i)
                o[i] = 'Q';
        } else if (genre == "tronquee") {
            o.truncate(o.size() / 3 + 1000);
        } else if (genre == "entete") {
            for (int i = 0; i < 100; ++i)
                o[i] = 0;
        } else if (genre == "vide") {
            o.clear();
        } else if (genre == "texte") {
            o = QByteArray("Liste des courses\r\nfarine\r\nlevure\r\n").repeated(50);
        } else if (genre == "etrangere") {
            QFile::remove(Base_());
            SQLite::Database db(Base_().toStdString(),
                                SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            db.exec("CREATE TABLE Photos (Id INTEGER, Nom TEXT)");
            return;
        } else if (genre == "sanstable") {
            SQLite::Database db(Base_().toStdString(), SQLite::OPEN_READWRITE);
            db.exec("DROP TABLE Ventilation");
            return;
        } else if (genre == "colonne") {
            SQLite::Database db(Base_().toStdString(), SQLite::OPEN_READWRITE);
            db.exec("ALTER TABLE Societe RENAME COLUMN Ville TO Commune");
            return;
        }
        Ecrire(Base_(), o);
    }

    QStringList FichiersGardes() const {
        return QDir(dossier->Chemin())
            .entryList({QStringLiteral("maroval.mdb.endommage-*")}, QDir::Files);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        archives = QDir(dossier->Chemin()).filePath(QStringLiteral("../archives"));
        QDir().mkpath(archives);
        session().DossierDonnees = dossier->Chemin();
        auto& e = ecransDemarrage();
        e.MontrerGeneral = [] {};
        e.MontrerRecup = [] {};
        e.MontrerSociete = [] {};
        ui::FixerHorloge(Moment);
    }
    void cleanup() {
        FermerBase();
        LibererDossierDonnees();
        ecransDemarrage() = EcransParDefaut();
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        ui::OublierReponsesBoite();
        QDir(archives).removeRecursively();
        dossier.reset();
    }

    void baseAbimee_boiteQuiLeDitEtFichierIntact_data() {
        QTest::addColumn<QString>("genre");
        QTest::addColumn<QString>("constat");
        QTest::addColumn<QString>("raison");
        QTest::newRow("pages écrasées") << "pages"
                                        << "est endommagé"
                                        << "(";
        QTest::newRow("fichier tronqué") << "tronquee"
                                         << "est endommagé"
                                         << "(";
        QTest::newRow("en-tête à zéro") << "entete"
                                        << "est endommagé"
                                        << "l'en-tête du fichier n'est pas celui";
        QTest::newRow("fichier vide") << "vide"
                                      << "n'est pas une comptabilité"
                                      << "le fichier est vide";
        QTest::newRow("fichier texte") << "texte"
                                       << "est endommagé"
                                       << "l'en-tête du fichier";
        QTest::newRow("base d'un autre programme") << "etrangere"
                                                   << "n'est pas une comptabilité"
                                                   << "il manque les tables « Budget »";
        QTest::newRow("table retirée") << "sanstable"
                                       << "n'est pas une comptabilité"
                                       << "(il manque la table « Ventilation »)";
        QTest::newRow("colonne renommée")
            << "colonne"
            << "n'est pas une comptabilité"
            << "il manque la colonne « Ville » dans la table « Societe » ; la colonne "
               "« Commune » de la table « Societe » n'est pas de Maroval";
    }
    void baseAbimee_boiteQuiLeDitEtFichierIntact() {
        QFETCH(QString, genre);
        QFETCH(QString, constat);
        QFETCH(QString, raison);
        PreparerBaseEtSauvegarde();
        Abimer(genre);
        const QByteArray avant = essai::LireFichier(Base_());
        QVERIFY(ControlerBase(Base_()).etat != EtatBase::Saine);

        ui::RepondreBoite(Reponse::Annuler);
        QCOMPARE(Demarrer(), 1);

        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal& b = ui::JournalBoites().first();
        QCOMPARE(b.icone, ui::Icone::Critique);
        QCOMPARE(b.boutons, ui::Boutons::OuiNonAnnuler);
        QVERIFY2(b.texte.contains(constat), qPrintable(b.texte));
        QVERIFY2(b.texte.contains(raison), qPrintable(b.texte));
        QVERIFY2(b.texte.contains(QDir::toNativeSeparators(Base_())), qPrintable(b.texte));
        QVERIFY2(b.texte.contains("la plus récente du 22/11/2026 à 18:04"), qPrintable(b.texte));
        QVERIFY2(b.texte.contains(archives + "/hier.sav"), qPrintable(b.texte));
        QVERIFY2(b.texte.contains("maroval.mdb.endommage-20261123-101500"), qPrintable(b.texte));
        QVERIFY(!BaseOuverte());
        // Le fichier n'a pas changé d'un octet, rien n'a été mis de côté ni effacé.
        QCOMPARE(essai::LireFichier(Base_()), avant);
        QVERIFY(FichiersGardes().isEmpty());
        QVERIFY(!QFile::exists(Base_() + "-wal") || QFileInfo(Base_() + "-wal").size() == 0);
    }

    void reprise_derniereSauvegardeMiseEnPlaceEtBaseAbimeeGardee() {
        PreparerBaseEtSauvegarde();
        Abimer("pages");
        const QByteArray abimee = essai::LireFichier(Base_());

        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        QCOMPARE(Demarrer(), 0);

        QCOMPARE(ui::JournalBoites().size(), 2);
        QCOMPARE(ui::JournalBoites().last().texte, TexteRestaurationTerminee());
        QCOMPARE(FichiersGardes(), QStringList{"maroval.mdb.endommage-20261123-101500"});
        QCOMPARE(essai::LireFichier(dossier->Fichier("maroval.mdb.endommage-20261123-101500")),
                 abimee);
        QCOMPARE(ControlerBase(Base_(), true).etat, EtatBase::Saine);
        OuvrirBase(dossier->Chemin());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe WHERE Nom='Boulangerie Martin'"), 1);
    }

    void reprise_autreArchiveChoisie() {
        PreparerBaseEtSauvegarde();
        const QString autre = archives + QStringLiteral("/autre.sav");
        QVERIFY(QFile::copy(archives + "/hier.sav", autre));
        Abimer("entete");
        const QByteArray abimee = essai::LireFichier(Base_());

        ui::RepondreBoite(Reponse::Non);
        ui::RepondreFichier(autre);
        ui::RepondreBoite(Reponse::OK);
        QCOMPARE(Demarrer(), 0);

        QCOMPARE(ui::JournalBoites().last().texte, TexteRestaurationTerminee());
        QCOMPARE(essai::LireFichier(dossier->Fichier(FichiersGardes().value(0))), abimee);
        QCOMPARE(ControlerBase(Base_(), true).etat, EtatBase::Saine);
    }

    // Une sauvegarde qui n'en est pas une : la boîte d'échec, puis le choix revient ; la
    // base abîmée n'a pas bougé.
    void reprise_archiveRefuseeLaisseLeChoixEtLaBase() {
        PreparerBaseEtSauvegarde();
        Ecrire(archives + "/hier.sav", QByteArray("pas une archive"));
        Abimer("tronquee");
        const QByteArray abimee = essai::LireFichier(Base_());

        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(Reponse::Annuler);
        QCOMPARE(Demarrer(), 1);

        QCOMPARE(ui::JournalBoites().size(), 3);
        QCOMPARE(ui::JournalBoites().at(1).texte, TexteEchecRestauration());
        QCOMPARE(ui::JournalBoites().at(2).texte, ui::JournalBoites().at(0).texte);
        QCOMPARE(essai::LireFichier(Base_()), abimee);
        QVERIFY(FichiersGardes().isEmpty());
        QVERIFY(!BaseOuverte());
    }

    void repriseSansSauvegardeConnue_choixDUnFichierOuQuitter() {
        PreparerBaseEtSauvegarde();
        QFile::remove(CheminHistorique());
        Abimer("vide");

        ui::RepondreBoite(Reponse::Non);
        QCOMPARE(Demarrer(), 1);
        QCOMPARE(ui::JournalBoites().first().boutons, ui::Boutons::OuiNon);
        QVERIFY(ui::JournalBoites().first().texte.contains("Aucune sauvegarde n'est connue"));
        QCOMPARE(QFileInfo(Base_()).size(), 0);

        ui::ViderJournalBoites();
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreFichier(archives + "/hier.sav");
        ui::RepondreBoite(Reponse::OK);
        QCOMPARE(Demarrer(), 0);
        QCOMPARE(ControlerBase(Base_(), true).etat, EtatBase::Saine);
        QCOMPARE(QFileInfo(dossier->Fichier(FichiersGardes().value(0))).size(), 0);
    }

    // Un historique illisible ne propose rien, sans autre erreur.
    void historiqueIllisible_reprisePossibleQuandMeme() {
        PreparerBaseEtSauvegarde();
        Ecrire(CheminHistorique(), QByteArray("\x01\x02<xml", 7));
        Abimer("pages");
        ui::RepondreBoite(Reponse::Non);
        QCOMPARE(Demarrer(), 1);
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites().first().boutons, ui::Boutons::OuiNon);
    }

    void baseSaine_aucuneBoite() {
        PreparerBaseEtSauvegarde();
        QCOMPARE(Demarrer(), 0);
        QVERIFY(ui::JournalBoites().isEmpty());
        QVERIFY(BaseOuverte());
    }

    // Des octets quelconques, une ligne d'un million de caractères : ce qui se lit est lu,
    // le reste prend sa valeur par défaut.
    void configurationIllisible_valeursLuesOuParDefaut() {
        PreparerBaseEtSauvegarde();
        QByteArray bruit(200000, Qt::Uninitialized);
        QRandomGenerator hasard(14);
        for (char& c : bruit)
            c = static_cast<char>(hasard.bounded(256));
        Ecrire(CheminIni(), bruit + "\n" + QByteArray(1 << 20, 'x') + "\n[Options]\nSymbEu=F\n" +
                                "NbDecimales=" + QByteArray(1 << 20, '9') + "\n" + bruit);
        session().SymboleMonnaie = "?";
        session().ModeDebug = true;
        QCOMPARE(Demarrer(), 0);
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(session().SymboleMonnaie, QStringLiteral("F"));
        QVERIFY(!session().ModeDebug);
        QVERIFY(BaseOuverte());

        FermerBase();
        LibererDossierDonnees();
        Ecrire(CheminIni(), bruit);
        QCOMPARE(Demarrer(), 0);
        QCOMPARE(session().SymboleMonnaie, QStringLiteral("E"));
        QCOMPARE(session().Decimales, QStringLiteral("0.00"));
    }

    // /proc existe mais personne, pas même root, n'y crée de fichier : le refus est vu en
    // essayant, pas en lisant les droits.
    void dossierSansEcriture_boiteAvantToutEtFinAuCodeUn() {
        qputenv("MAROVAL_DONNEES", "/proc");
        ui::RepondreBoite(Reponse::OK);
        QCOMPARE(Demarrer(), 1);
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Critique);
        QVERIFY(ui::JournalBoites().first().texte.startsWith(
            "Maroval ne peut pas écrire dans son dossier de données :\n\n/proc\n\n("));
        QVERIFY(!BaseOuverte());
        QVERIFY(!QFile::exists("/proc/maroval.ini"));
    }

    // Lancé seul dans un processus fils : le vrai démarrage sur une base abîmée, la boîte
    // répondue « Annuler ».
    void enfantBaseAbimee() {
        if (!support::EstProcessusFils()) QSKIP("exécuté seulement comme processus fils");
        qputenv("MAROVAL_DONNEES", qgetenv("MAROVAL_ESSAI_DOSSIER"));
        ui::ObserverFin(false);
        ui::RepondreBoite(Reponse::Non);
        std::printf("avant\n");
        std::fflush(stdout);
        const int code = Demarrer();
        std::printf("jamais %d\n", code);
    }

    void processusSurBaseAbimee_finAuCodeUnSansAbandon() {
        PreparerBaseEtSauvegarde();
        QFile::remove(CheminHistorique());
        Abimer("pages");
        const QByteArray avant = essai::LireFichier(Base_());
        qputenv("MAROVAL_ESSAI_DOSSIER", QFile::encodeName(dossier->Chemin()));
        const support::ResultatFils fils = support::LancerFonctionEnFils("enfantBaseAbimee");
        qunsetenv("MAROVAL_ESSAI_DOSSIER");
        QVERIFY(fils.termine);
        QVERIFY2(!fils.plante, qPrintable(fils.erreurs));
        QCOMPARE(fils.code, 1);
        QVERIFY2(fils.sortie.contains("avant\n"), qPrintable(fils.sortie));
        QVERIFY(!fils.sortie.contains("jamais"));
        QVERIFY(!fils.erreurs.contains("terminate"));
        QCOMPARE(essai::LireFichier(Base_()), avant);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestDemarrageBaseAbimee test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_demarrage_base_abimee.moc"
