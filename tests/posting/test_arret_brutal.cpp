// Arrêt brutal à chaque écriture : le processus fils passe une écriture et se tue (SIGKILL)
// juste avant la k-ième écriture durable — ligne de la base, validation de la base ou
// écriture de maroval.ini ; le test redémarre alors comme le programme (décision sur le
// marqueur, reprise automatique) et compare toutes les tables à ce qui est attendu.

#include "support/DossierEssai.h"
#include "support/LivresEssai.h"
#include "support/Recalcul.h"

#include "backup/Recup.h"
#include "companies/Demarrage.h"
#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "posting/Verification.h"
#include "session/FichierProfil.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QProcess>
#include <QtTest>
#include <csignal>
#include <sqlite3.h>
#include <unistd.h>

using namespace essai;

namespace {

// --- Côté fils ---

int g_arret = 0;
QString g_evenements; // P : maroval.ini, L : ligne de la base, V : validation

void Evenement(QChar genre) {
    g_evenements += genre;
    if (g_evenements.size() == g_arret) ::kill(::getpid(), SIGKILL);
}

void EcouterEcritures() {
    FichierProfil::AvantEcriture = [] { Evenement(u'P'); };
    sqlite3* h = Base().getHandle();
    sqlite3_update_hook(
        h, [](void*, int, const char*, const char*, sqlite3_int64) { Evenement(u'L'); }, nullptr);
    sqlite3_commit_hook(
        h,
        [](void*) {
            Evenement(u'V');
            return 0;
        },
        nullptr);
}

// Le reprise automatique telle que le démarrage la mène, boîtes répondues d'avance.
void Reprendre() {
    ecransDemarrage().MontrerRecup = [] {
        ecran::Recup r;
        r.BRecup_Click();
    };
    DeciderMarqueur();
}

int Fils() {
    ReprendreLivres(qEnvironmentVariable("MAROVAL_DONNEES"));
    g_arret = qEnvironmentVariableIntValue("MAROVAL_ARRET");
    const QString mode = qEnvironmentVariable("MAROVAL_MODE");
    EcouterEcritures();
    if (mode == QLatin1String("reprise")) {
        ui::ObserverFin(true);
        ui::RepondreBoite(ui::Reponse::OK);
        Reprendre();
    } else {
        PasserEcriture(QStringLiteral("1"), mode);
    }
    std::printf("EVENEMENTS %s\n", qPrintable(g_evenements));
    std::fflush(stdout);
    FichierProfil::AvantEcriture = nullptr;
    FermerBase();
    return 0;
}

// --- Côté test ---

struct Lancement {
    bool tue = false;
    QString evenements;
};

Lancement LancerFils(const QString& mode, int arret) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("MAROVAL_FILS_ARRET"), QStringLiteral("1"));
    env.insert(QStringLiteral("MAROVAL_ARRET"), QString::number(arret));
    env.insert(QStringLiteral("MAROVAL_MODE"), mode);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    p.setProcessEnvironment(env);
    p.start(QCoreApplication::applicationFilePath(), {});
    p.waitForFinished(30000);
    Lancement l;
    l.tue = p.exitStatus() == QProcess::CrashExit;
    const QString sortie = QString::fromUtf8(p.readAllStandardOutput());
    const qsizetype i = sortie.indexOf(QLatin1String("EVENEMENTS "));
    if (i >= 0) l.evenements = sortie.mid(i + 11).section(u'\n', 0, 0).trimmed();
    return l;
}

} // namespace

class TestArretBrutal : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    QTemporaryDir modele;
    int pointsEprouves = 0;
    bool sessionSuivie = true;

    QStringList Fichiers() { return {"maroval.mdb", "maroval.ini"}; }
    void Garder() {
        FermerBase();
        for (const QString& f : Fichiers()) {
            QFile::remove(modele.filePath(f));
            QVERIFY(QFile::copy(dossier->Fichier(f), modele.filePath(f)));
        }
    }
    void Remettre() {
        FermerBase();
        for (const char* f : {"maroval.mdb", "maroval.mdb-wal", "maroval.mdb-shm", "maroval.ini"})
            QFile::remove(dossier->Fichier(f));
        for (const QString& f : Fichiers())
            QVERIFY(QFile::copy(modele.filePath(f), dossier->Fichier(f)));
    }
    QString Marqueur() {
        return FichierProfil(dossier->Fichier("maroval.ini")).Lire("Securite", "Erreur", "0");
    }

    // Redémarre comme le programme ; rend la boîte montrée (vide s'il n'y en a pas).
    QString Redemarrer() {
        ReprendreLivres(dossier->Chemin());
        // Une autre société ouverte la dernière fois : la reprise suit le marqueur.
        session().NumSocCourante = 7;
        session().ExerciceCourant = 1999;
        ui::ViderJournalBoites();
        ui::OublierReponsesBoite();
        ui::RepondreBoite(ui::Reponse::OK);
        const bool recup = Marqueur() == QLatin1String("2");
        Reprendre();
        ui::OublierReponsesBoite();
        if (recup) {
            // La reprise ouvre l'exercice que nomme le marqueur.
            sessionSuivie = session().NumSocCourante == 1 && session().ExerciceCourant == 2024 &&
                            session().NomSocCourante == QLatin1String("Essais Dupont & Fils");
        }
        session().NumSocCourante = 1;
        session().ExerciceCourant = 2024;
        const auto& journal = ui::JournalBoites();
        return journal.isEmpty() ? QString() : journal.last().texte;
    }

    // Lignes ajoutées par une suite d'opérations sur une copie du modèle.
    template <class F> QStringList Ajouts(const QStringList& avant, F operations) {
        Remettre();
        ReprendreLivres(dossier->Chemin());
        operations();
        return Difference(avant, Vidage());
    }

    // Une écriture arrêtée à chacune de ses écritures durables, puis reprise.
    void Matrice(const QString& monnaie, const QStringList& sansBudget) {
        ReprendreLivres(dossier->Chemin());
        const QStringList avant = Vidage();
        Garder();

        // Ce que la conversion crée (677 et 777 vierges) et l'état de l'écriture complète.
        const QStringList conversion = Ajouts(avant, [&] {
            if (monnaie == QLatin1String("E")) return;
            AssurerCompte(Cle, "677", "Perte sur conversions", "E2", "CONS");
            AssurerCompte(Cle, "777", "Gain sur conversions", "R2", "ACTI");
        });
        Remettre();
        const Lancement complet = LancerFils(monnaie, 0);
        QVERIFY(!complet.tue);
        const QString ev = complet.evenements;
        QCOMPARE(ev.count(u'P'), 3);
        QCOMPARE(ev.count(u'V'), 3);
        ReprendreLivres(dossier->Chemin());
        const QStringList apres = Vidage();
        QVERIFY(Verification());
        QStringList budgetsFaits;
        for (const QString& l : Difference(avant, apres))
            for (const QString& n : sansBudget)
                if (l.startsWith("Budget|") && l.contains("|NumBud=" + n + "|")) budgetsFaits << l;
        QCOMPARE(budgetsFaits.size(), sansBudget.size());

        const int p1 = ev.indexOf(u'P') + 1, p2 = ev.indexOf(u'P', p1) + 1,
                  p3 = ev.indexOf(u'P', p2) + 1;
        const int vImages = ev.indexOf(u'V') + 1, vLivres = ev.indexOf(u'V', vImages) + 1;
        QVERIFY(p1 == 1 && vImages < p2 && p2 < vLivres && vLivres < p3);

        for (int k = 1; k <= ev.size(); ++k) {
            Remettre();
            const Lancement l = LancerFils(monnaie, k);
            QVERIFY2(l.tue, qPrintable(QString("point %1 : le fils n'a pas été arrêté").arg(k)));
            const QString marqueur = Marqueur();
            const QString boite = Redemarrer();
            const QStringList reprise = Vidage();
            QStringList attendu = avant;
            QString boiteAttendue;
            bool livresJustes = true;
            if (k <= p1) {
                QCOMPARE(marqueur, QStringLiteral("0"));
            } else if (k <= p2) {
                QCOMPARE(marqueur, QStringLiteral("1"));
                boiteAttendue = MessageMarqueur1;
                if (k > vImages) attendu << conversion;
            } else if (k <= p3) {
                QCOMPARE(marqueur, QStringLiteral("2"));
                attendu << conversion;
                // Un budget fait par l'écriture n'a pas d'image : il reste, faux.
                if (k > vLivres) attendu << budgetsFaits;
                livresJustes = k <= vLivres || budgetsFaits.isEmpty();
                boiteAttendue = livresJustes ? RecuperationReussie : RecuperationImpossible;
            } else {
                QCOMPARE(marqueur, QStringLiteral("0"));
                attendu = apres;
            }
            attendu.sort();
            const QString lieu = QString("point %1 (%2) ").arg(k).arg(ev.at(k - 1));
            QVERIFY2(reprise == attendu,
                     qPrintable(lieu + "en trop : " + Difference(attendu, reprise).join('\n') +
                                "\nmanquant : " + Difference(reprise, attendu).join('\n')));
            QVERIFY2(boite == boiteAttendue, qPrintable(lieu + boite));
            QVERIFY2(Verification() == livresJustes, qPrintable(lieu));
            QVERIFY2(sessionSuivie, qPrintable(lieu + "session"));
            QCOMPARE(Marqueur(), QStringLiteral("0"));
            ++pointsEprouves;
        }
        qInfo("%s : %lld points d'arrêt (%s)", qPrintable(monnaie), qlonglong(ev.size()),
              qPrintable(ev));
    }

private slots:
    void init() {
        QVERIFY(modele.isValid());
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }
    void cleanupTestCase() { qInfo("%d points d'arrêt éprouvés en tout", pointsEprouves); }

    void venteDeTroisLignesArreteeAChaqueEcriture() {
        ViderSaisie();
        Saisir("411001", "D", Euros(1200));
        Saisir("707", "C", Euros(1000));
        Saisir("44571", "C", Euros(200));
        Matrice("E", {});
    }

    void achatAvecLigneDeConversionEtBudgetNeufArreteAChaqueEcriture() {
        CompteSansBudget("6064", "Fournitures");
        ViderSaisie();
        Saisir("6064", "D", Montant::depuisDixMilliemes(100050), "A");
        Saisir("607", "D", Montant::depuisDixMilliemes(100050), "A");
        Saisir("512", "C", Montant::depuisDixMilliemes(200100), "A");
        Matrice("F", {"6064"});
    }

    void repriseArreteeAChaqueEcriturePuisRefaite() {
        ViderSaisie();
        Saisir("411001", "D", Euros(1200));
        Saisir("707", "C", Euros(1000));
        Saisir("44571", "C", Euros(200));
        const QStringList avant = Vidage();
        Garder();
        // Arrêt juste avant le marqueur 0 : les livres ont changé, les images sont là.
        const Lancement complet = LancerFils("E", 0);
        const int p3 = complet.evenements.lastIndexOf(u'P') + 1;
        Remettre();
        QVERIFY(LancerFils("E", p3).tue);
        // La base rouverte puis fermée reprend ce que le journal WAL du fils gardait.
        ReprendreLivres(dossier->Chemin());
        QCOMPARE(Marqueur(), QStringLiteral("2"));
        QVERIFY(Compter("SELECT count(*) FROM Compte WHERE CleCpt='000000'") > 0);
        QCOMPARE(Compter("SELECT count(*) FROM Ecriture"), 3);
        Garder();
        Remettre();
        const Lancement reprise = LancerFils("reprise", 0);
        QVERIFY(!reprise.tue);
        QVERIFY2(reprise.evenements.size() > 5, qPrintable(reprise.evenements));
        for (int k = 1; k <= reprise.evenements.size(); ++k) {
            Remettre();
            QVERIFY(LancerFils("reprise", k).tue);
            // La reprise interrompue laisse le marqueur à 2 : le démarrage suivant la refait.
            QCOMPARE(Marqueur(), QStringLiteral("2"));
            const QString boite = Redemarrer();
            QCOMPARE(boite, RecuperationReussie);
            QCOMPARE(Vidage(), avant);
            QVERIFY(Verification());
            ++pointsEprouves;
        }
        qInfo("reprise : %lld points d'arrêt (%s)", qlonglong(reprise.evenements.size()),
              qPrintable(reprise.evenements));
    }
};

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsSet("MAROVAL_FILS_ARRET")) {
        ui::Application application(argc, argv);
        return Fils();
    }
    ui::Application application(argc, argv);
    TestArretBrutal t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_arret_brutal.moc"
