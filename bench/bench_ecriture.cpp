// Mesures de l'écriture des livres, sur le disque de la machine :
// C, une validation durable d'une ligne dans la base ; P, le passage d'une vente de trois
// lignes ; le nombre de synchronisations durables d'un passage ; puis la vérification des
// livres sur 100 000 lignes face à un simple balayage SQL de Ecriture.
// Usage : bench_ecriture [--lignes N]

#include "Generateur.h"

#include "posting/PasserEcriture.h"
#include "posting/Verification.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <sqlite3.h>
#include <vector>

namespace {

double Mediane(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

double Millisecondes(const QElapsedTimer& t) {
    return t.nsecsElapsed() / 1e6;
}

int g_validations = 0;
int g_marqueurs = 0;

void Compter(bool actif) {
    sqlite3* h = Base().getHandle();
    if (actif) {
        sqlite3_commit_hook(
            h,
            [](void*) {
                ++g_validations;
                return 0;
            },
            nullptr);
        FichierProfil::AvantEcriture = [] { ++g_marqueurs; };
    } else {
        sqlite3_commit_hook(h, nullptr, nullptr);
        FichierProfil::AvantEcriture = nullptr;
    }
}

const char* Verdict(bool ok) {
    return ok ? "atteinte" : "MANQUEE";
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    int lignes = 100000;
    const QStringList args = application.arguments();
    const qsizetype i = args.indexOf(QStringLiteral("--lignes"));
    if (i >= 0 && i + 1 < args.size()) lignes = args[i + 1].toInt();

    QTemporaryDir dossier(QDir::tempPath() + QStringLiteral("/maroval-bench-XXXXXX"));
    if (!dossier.isValid()) {
        std::fprintf(stderr, "Dossier temporaire impossible\n");
        return 1;
    }

    // --- C et P sur une comptabilité de taille courante, sur le disque ---
    generateur::Options petite;
    petite.dossier = dossier.filePath(QStringLiteral("courante"));
    petite.lignesVisees = 3000;
    const generateur::Resultat g1 = generateur::Generer(petite);
    generateur::OuvrirGenere(petite.dossier);
    std::printf("Comptabilité courante : %d lignes en %d écritures (%.1f s)\n", g1.lignes,
                g1.ecritures, g1.secondes);

    const int essais = 41;
    std::vector<double> c, p;
    auto& maj = Base();
    for (int n = 0; n < essais; ++n) {
        SQLite::Statement q(maj, "UPDATE Constante SET DateSaisie=? WHERE CleCon=?");
        q.bind(1, n % 2 ? "20240301" : "20240302");
        q.bind(2, g1.cle.toStdString());
        QElapsedTimer t;
        t.start();
        q.exec();
        c.push_back(Millisecondes(t));

        Base().exec("DELETE FROM wSaisie");
        session().DateSaisieCourante = QStringLiteral("15/03/2024");
        generateur::PoserVente(n % petite.clients, 10000 + n * 100, QStringLiteral("20240315"));
        table::Constante k;
        LireConstante(g1.cle, k);
        const QString dernum = QString::number(k.LastNumEcrit + 1, 'f', 0);
        if (n == 0) Compter(true);
        t.restart();
        PasserEcriture(dernum, QStringLiteral("E"));
        p.push_back(Millisecondes(t));
        if (n == 0) Compter(false);
    }
    const double C = Mediane(c), P = Mediane(p);
    const int syncs = g_validations + g_marqueurs;
    std::printf("C  validation durable d'une ligne    : %8.3f ms (médiane de %d)\n", C, essais);
    std::printf("P  passage d'une vente de 3 lignes   : %8.3f ms (médiane de %d)\n", P, essais);
    std::printf("P/C                                  : %8.2f   (cible <= 12 : %s)\n", P / C,
                Verdict(P <= 12 * C));
    std::printf("Synchronisations durables par passage : %d = %d validations de la base + %d "
                "écritures de maroval.ini (cible <= 8 : %s)\n",
                syncs, g_validations, g_marqueurs, Verdict(syncs <= 8));
    const bool justes = Verification();
    std::printf("Livres vérifiés après les mesures    : %s\n", justes ? "justes" : "FAUX");
    FermerBase();

    // --- Vérification sur un gros exercice ---
    generateur::Options grosse;
    grosse.dossier = dossier.filePath(QStringLiteral("grosse"));
    grosse.lignesVisees = lignes;
    grosse.clients = 400;
    grosse.fournisseurs = 120;
    const generateur::Resultat g2 = generateur::Generer(grosse);
    std::printf("Gros exercice : %d lignes en %d écritures, généré en %.1f s (%.2f ms par "
                "écriture, base en mémoire)\n",
                g2.lignes, g2.ecritures, g2.secondes, g2.secondes * 1000 / g2.ecritures);
    generateur::OuvrirGenere(grosse.dossier);
    bool grosJuste = Verification(); // met aussi le cache au chaud
    std::vector<double> v, s;
    for (int n = 0; n < 7; ++n) {
        QElapsedTimer t;
        t.start();
        grosJuste = Verification() && grosJuste;
        v.push_back(Millisecondes(t));
        t.restart();
        SQLite::Statement q(Base(), "SELECT count(*), sum(abs(MntEcr)) FROM Ecriture WHERE "
                                    "CleCpt=?");
        q.bind(1, g2.cle.toStdString());
        q.executeStep();
        s.push_back(Millisecondes(t));
    }
    const double V = Mediane(v), S = Mediane(s);
    std::printf("Vérification sur %d lignes          : %8.1f ms (cible < 1000 ms : %s) ; "
                "livres %s\n",
                g2.lignes, V, Verdict(V < 1000), grosJuste ? "justes" : "FAUX");
    std::printf("Un balayage SQL agrégé de Ecriture   : %8.1f ms ; rapport %.2f (cible <= 3 : "
                "%s)\n",
                S, V / S, Verdict(V <= 3 * S));
    FermerBase();
    return justes && grosJuste ? 0 : 1;
}
