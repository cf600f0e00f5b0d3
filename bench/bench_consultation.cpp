// Mesures de la consultation sur une comptabilité générée de 100 000 lignes : journal
// général décroissant de toute l'année (rempli et peint), balance générale, bilan, et pour
// comparaison une simple lecture de toutes les lignes dans l'ordre des numéros.

#include "Generateur.h"
#include "consultation/Balance.h"
#include "consultation/BilGraph.h"
#include "consultation/Bilan.h"
#include "consultation/DonneesJournal.h"
#include "consultation/Journal.h"
#include "consultation/Resultat.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRadioButton>
#include <QTemporaryDir>
#include <cstdio>

namespace {

// Mémoire résidente du processus (courante et maximale), en Mo.
void Memoire(double& courante, double& maximale) {
    QFile f(QStringLiteral("/proc/self/status"));
    courante = maximale = 0;
    if (!f.open(QIODevice::ReadOnly)) return;
    for (const QByteArray& ligne : f.readAll().split('\n')) {
        const auto valeur = [&] {
            return ligne.mid(6).trimmed().split(' ').first().toDouble() / 1024;
        };
        if (ligne.startsWith("VmRSS:")) courante = valeur();
        if (ligne.startsWith("VmHWM:")) maximale = valeur();
    }
}

void Cliquer(QWidget* ecran, const char* option) {
    ecran->findChild<QRadioButton*>(QString::fromLatin1(option))->click();
}

void Photographier(QWidget& ecran, const QString& chemin) {
    ecran.show();
    QCoreApplication::processEvents();
    ecran.grab().save(chemin);
    std::printf("Capture : %s\n", qPrintable(chemin));
}

// Captures des écrans sur une petite comptabilité générée, pour les regarder.
void Captures(const QString& vers) {
    ecran::Journal journal;
    journal.resize(1100, 650);
    Cliquer(&journal, "BRCrois");
    Photographier(journal, vers + QStringLiteral("/journal.png"));
    ecran::Balance balance;
    balance.resize(1000, 600);
    Cliquer(&balance, "BRCompl");
    Photographier(balance, vers + QStringLiteral("/balance.png"));
    ecran::Bilan bilan;
    Photographier(bilan, vers + QStringLiteral("/bilan.png"));
    ecran::Resultat resultat;
    Photographier(resultat, vers + QStringLiteral("/resultat.png"));
    ecran::BilGraph graphique;
    Photographier(graphique, vers + QStringLiteral("/bilgraph_bilan.png"));
    Cliquer(&graphique, "Option2");
    Photographier(graphique, vers + QStringLiteral("/bilgraph_resultat.png"));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    ui::Application application(argc, argv);
    QTemporaryDir temporaire;
    // MAROVAL_BASE_MESURE : dossier d'une base générée gardée d'une mesure à l'autre.
    const QString garde = qEnvironmentVariable("MAROVAL_BASE_MESURE");
    const QString dossier = garde.isEmpty() ? temporaire.path() : garde;
    generateur::Options options;
    options.dossier = dossier;
    const int rangCaptures = QCoreApplication::arguments().indexOf(QStringLiteral("--captures"));
    options.lignesVisees = rangCaptures > 0 ? 2000 : 100000;
    if (garde.isEmpty() || !QFile::exists(dossier + QStringLiteral("/maroval.mdb"))) {
        const generateur::Resultat genere = generateur::Generer(options);
        std::printf("Base générée : %d lignes, %d écritures en %.1f s\n", genere.lignes,
                    genere.ecritures, genere.secondes);
    }
    generateur::OuvrirGenere(dossier);
    MajFormatMontant(2);
    if (rangCaptures > 0) {
        Captures(QCoreApplication::arguments().value(rangCaptures + 1, QStringLiteral("/tmp")));
        return 0;
    }

    QElapsedTimer chrono;
    // Lecture simple de référence : toutes les colonnes de toutes les lignes.
    chrono.start();
    long long lues = 0;
    {
        SQLite::Statement q(Base(), "SELECT * FROM Ecriture WHERE CleCpt=? ORDER BY NumEcr");
        q.bind(1, CleCourante().toStdString());
        while (q.executeStep()) {
            for (int c = 0; c < q.getColumnCount(); ++c)
                lues += q.getColumn(c).getBytes();
        }
    }
    const double simple = chrono.nsecsElapsed() / 1e6;

    // Les mêmes lignes lues par la porte des données, puis mises en textes, sans grille.
    chrono.restart();
    int parLaPorte = 0;
    journal::LireLignes(QStringLiteral("*"), true, [&](const journal::Ligne&) { ++parLaPorte; });
    const double tempsPorte = chrono.nsecsElapsed() / 1e6;
    chrono.restart();
    qsizetype caracteres = 0;
    journal::LireLignes(QStringLiteral("*"), true, [&](const journal::Ligne& l) {
        for (const QString& t :
             journal::Textes(l, FormaterMontant(l.montant, session().FormatMontant)))
            caracteres += t.size();
    });
    const double tempsTextes = chrono.nsecsElapsed() / 1e6;

    double avant = 0, pic = 0;
    Memoire(avant, pic);
    ecran::Journal journal;
    journal.show();
    QCoreApplication::processEvents();
    chrono.restart();
    Cliquer(&journal, "BRDecrois");
    journal.grab(); // peinture complète de l'écran rempli
    QCoreApplication::processEvents();
    const double tempsJournal = chrono.nsecsElapsed() / 1e6;
    double apres = 0;
    Memoire(apres, pic);
    ui::Grille* grilleJournal = journal.findChild<ui::Grille*>(QStringLiteral("Tree1"));
    const int lignesGrille = grilleJournal->NombreLignes();
    // Tri de toute l'année par le libellé, comme un clic sur le titre, puis peinture.
    chrono.restart();
    grilleJournal->Trier(3);
    journal.grab();
    const double tempsTri = chrono.nsecsElapsed() / 1e6;

    ecran::Balance balance;
    balance.show();
    QCoreApplication::processEvents();
    chrono.restart();
    Cliquer(&balance, "BRCompl");
    balance.grab();
    const double tempsBalance = chrono.nsecsElapsed() / 1e6;

    chrono.restart();
    {
        ecran::Bilan bilan;
        bilan.show();
        bilan.grab();
    }
    const double tempsBilan = chrono.nsecsElapsed() / 1e6;

    std::printf("SELECT * FROM Ecriture ORDER BY NumEcr (toutes colonnes lues) : %.0f ms (%lld "
                "octets)\n",
                simple, lues);
    std::printf("Journal général décroissant, année entière, rempli et peint : %.0f ms, %d "
                "lignes de grille ; mémoire résidente %.0f Mo (avant %.0f Mo, pic %.0f Mo)\n",
                tempsJournal, lignesGrille, apres, avant, pic);
    std::printf("Lignes du journal lues par la porte des données : %.0f ms (%d lignes)\n",
                tempsPorte, parLaPorte);
    std::printf("Lignes du journal lues et mises en textes : %.0f ms (%lld caractères)\n",
                tempsTextes, static_cast<long long>(caracteres));
    std::printf("Journal / lecture simple : %.1f fois\n", tempsJournal / simple);
    std::printf("Tri du journal par Libellé : %.0f ms\n", tempsTri);
    std::printf("Balance générale : %.1f ms\n", tempsBalance);
    std::printf("Bilan : %.1f ms\n", tempsBilan);
    return 0;
}
