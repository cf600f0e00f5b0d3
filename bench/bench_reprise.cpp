// Reprise d'un fichier des écritures comptables d'environ 100 000 lignes dans une nouvelle
// société, sur disque : chaque écriture passée par le moteur comme une saisie. À côté, la
// simple insertion SQL des mêmes lignes dans Ecriture, d'une seule validation ; et le plus
// long intervalle sans que l'écran puisse répondre (la jauge et « Annuler »).
// Usage : bench_reprise [--lignes N]

#include "Generateur.h"
#include "fec/EcritureFec.h"
#include "fec/LectureFec.h"
#include "fec/RepriseFec.h"
#include "session/Session.h"
#include "store/Base.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <cstdio>
#include <cstring>

namespace {

double Secondes(const QElapsedTimer& c) {
    return static_cast<double>(c.nsecsElapsed()) / 1e9;
}

// Les lignes du fichier insérées telles quelles dans Ecriture sous une clé à part, puis
// retirées : ce que coûte l'écriture brute des mêmes données.
double InsertionSimple(const fec::FichierLu& f) {
    QElapsedTimer chrono;
    chrono.start();
    {
        SQLite::Transaction t(Base());
        SQLite::Statement q(Base(), "INSERT INTO Ecriture (CleCpt, NumEcr, DateEcr, DatePiece, "
                                    "NumCptEcr, MntEcr, LibEcr, DCEcr, Journal, Fin) VALUES "
                                    "('990000', ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        double n = 0;
        for (const fec::EcritureLue& e : f.ecritures)
            for (size_t i = 0; i < e.lignes.size(); ++i) {
                const fec::LigneLue& l = e.lignes[i];
                q.bind(1, ++n);
                q.bind(2, l.ecritureDate.toStdString());
                q.bind(3, l.pieceDate.toStdString());
                q.bind(4, (l.compAuxNum.isEmpty() ? l.compteNum : l.compAuxNum).toStdString());
                q.bind(5, static_cast<std::int64_t>((l.debit - l.credit).dixMilliemes()));
                q.bind(6, l.ecritureLib.left(40).toStdString());
                q.bind(7, l.debit.estNul() ? "C" : "D");
                q.bind(8, e.journalCode.toStdString());
                q.bind(9, i + 1 == e.lignes.size() ? 1 : 0);
                q.exec();
                q.reset();
            }
        t.commit();
    }
    const double s = Secondes(chrono);
    Base().exec("DELETE FROM Ecriture WHERE CleCpt = '990000'");
    return s;
}

} // namespace

int main(int argc, char** argv) {
    int lignes = 100000;
    for (int i = 1; i + 1 < argc; ++i)
        if (std::strcmp(argv[i], "--lignes") == 0) lignes = std::atoi(argv[i + 1]);
    QTemporaryDir dossier;
    generateur::Options options;
    options.dossier = dossier.path();
    options.lignesVisees = lignes;
    options.clients = 1500;
    options.fournisseurs = 200;
    const generateur::Resultat g = generateur::Generer(options);
    generateur::OuvrirGenere(dossier.path());
    std::printf("Comptabilité générée : %d lignes en %d écritures (%.1f s)\n", g.lignes,
                g.ecritures, g.secondes);

    fec::Totaux totaux;
    QString erreur;
    const QByteArray contenu = fec::FichierFec(CleCourante(), &totaux, &erreur);
    QElapsedTimer chrono;
    chrono.start();
    const fec::FichierLu f = fec::LireFec(contenu);
    const double lecture = Secondes(chrono);
    std::printf("Lecture contrôlée du fichier : %.2f s (%d lignes, %d refus)\n", lecture, f.lignes,
                static_cast<int>(f.refus.size()));

    fec::Parametres p;
    p.nom = QStringLiteral("Reprise mesurée");
    fec::DatesProposees(f, fec::NomFichier(QStringLiteral("732829320"), QStringLiteral("20241231")),
                        p.debut, p.fin);
    for (const fec::JournalDuFichier& j : fec::JournauxDuFichier(f))
        p.journaux.insert(j.code, j.propose);

    // L'écran rend la main tous les 16 écritures : l'intervalle le plus long entre deux est
    // le temps pendant lequel un clic sur « Annuler » attendrait.
    QElapsedTimer depuis;
    depuis.start();
    double plusLong = 0;
    int appels = 0;
    chrono.restart();
    const fec::Resultat r = fec::ReprendreFec(f, p, [&](int fait, int total) {
        if (fait % 16 == 0 || fait == total) {
            plusLong = std::max(plusLong, static_cast<double>(depuis.nsecsElapsed()) / 1e6);
            depuis.restart();
            ++appels;
        }
        return true;
    });
    const double reprise = Secondes(chrono);
    if (!r.erreur.isEmpty()) {
        std::printf("Reprise refusée : %s\n", qPrintable(r.erreur));
        return 1;
    }
    const double simple = InsertionSimple(f);
    std::printf("Reprise FEC : %.1f s\n", reprise);
    std::printf("Lignes reprises : %d lignes en %d écritures, %d comptes\n", r.lignes, r.ecritures,
                r.comptes);
    std::printf("Reprise par ligne : %.3f ms\n", reprise * 1000 / std::max(1, r.lignes));
    std::printf("Insertion SQL simple des mêmes lignes : %.2f s\n", simple);
    std::printf("Plus long intervalle sans réponse de l'écran : %.0f ms (%d réponses)\n", plusLong,
                appels);
    std::printf("Cible de 30 s pour 100 000 lignes : %s\n",
                reprise * 100000.0 / std::max(1, f.lignes) < 30 ? "atteinte" : "MANQUEE");
    return 0;
}
