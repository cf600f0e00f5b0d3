#include "Generateur.h"

#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "posting/TableTravail.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QUuid>
#include <deque>
#include <map>
#include <random>
#include <stdexcept>

namespace generateur {

namespace {

QHash<QString, table::Compte> g_comptes; // plan de l'exercice, lu une fois

QString Cle() {
    return CleExercice(NumSoc, Exercice);
}

void FixerSession(const QString& dossier) {
    Session& s = session();
    s.DossierDonnees = dossier;
    s.NumSocCourante = NumSoc;
    s.ExerciceCourant = Exercice;
    s.NomSocCourante = QStringLiteral("Comptoir Exemple");
    s.DateSaisieCourante = QStringLiteral("02/01/2024");
    s.MonnaieExercice = QStringLiteral("E");
    s.TauxConversion = 1;
    MajFormatMontant(2);
}

void InstallerConfiguration(const QString& dossier) {
    const QString ini = QDir(dossier).filePath(QStringLiteral("maroval.ini"));
    QFile::remove(ini);
    if (!QFile::copy(QStringLiteral(":/data/maroval.ini"), ini))
        throw std::runtime_error("maroval.ini livré introuvable");
    QFile::setPermissions(ini, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

void RetenirComptes() {
    g_comptes.clear();
    SQLite::Statement q(Base(), "SELECT NumCpt FROM Compte WHERE CleCpt=?");
    q.bind(1, Cle().toStdString());
    while (q.executeStep()) {
        const QString n = QString::fromUtf8(q.getColumn(0).getText());
        LireCompte(Cle(), n, g_comptes[n]);
    }
}

const table::Compte& CompteDuPlan(const QString& numero) {
    const auto i = g_comptes.constFind(numero);
    if (i == g_comptes.constEnd())
        throw std::runtime_error("compte absent du plan généré : " + numero.toStdString());
    return *i;
}

QString Client(int i) {
    return QStringLiteral("411%1").arg(i + 1, 5, 10, QLatin1Char('0'));
}
QString Fournisseur(int i) {
    return QStringLiteral("401%1").arg(i + 1, 5, 10, QLatin1Char('0'));
}

// Plan type n° 0001 s'il est livré, et toujours les comptes dont les écritures ont besoin.
void FairePlan(const Options& o) {
    const QString cle = Cle();
    SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt FROM PlanType WHERE NumPlan='0001'");
    while (q.executeStep())
        AssurerCompte(cle, QString::fromUtf8(q.getColumn(0).getText()),
                      QString::fromUtf8(q.getColumn(1).getText()), {}, {});
    const QList<QPair<const char*, const char*>> fixes = {{"400", "Fournisseurs collectif"},
                                                          {"410", "Clients collectif"},
                                                          {"699", "Compte pour résultat positif"},
                                                          {"799", "Compte pour résultat négatif"},
                                                          {"101", "Capital"},
                                                          {"164", "Emprunts"},
                                                          {"2183", "Matériel de bureau"},
                                                          {"44566", "TVA déductible"},
                                                          {"44571", "TVA collectée"},
                                                          {"512", "Banque"},
                                                          {"6064", "Fournitures administratives"},
                                                          {"607", "Achats de marchandises"},
                                                          {"6135", "Locations mobilières"},
                                                          {"6261", "Frais postaux"},
                                                          {"627", "Services bancaires"},
                                                          {"6411", "Salaires"},
                                                          {"6451", "Cotisations URSSAF"},
                                                          {"6611", "Intérêts des emprunts"},
                                                          {"706", "Prestations de services"},
                                                          {"7071", "Ventes de marchandises"}};
    for (const auto& [numero, libelle] : fixes)
        AssurerCompte(cle, QString::fromUtf8(numero), QString::fromUtf8(libelle), {}, {});
    for (int i = 0; i < o.clients; ++i)
        AssurerCompte(cle, Client(i), QStringLiteral("Client %1").arg(i + 1), {}, {});
    for (int i = 0; i < o.fournisseurs; ++i)
        AssurerCompte(cle, Fournisseur(i), QStringLiteral("Fournisseur %1").arg(i + 1), {}, {});
}

// Bilan d'ouverture posé comme l'écran d'ouverture le fait, puis clos.
void FaireOuverture() {
    const QString cle = Cle();
    table::Constante k;
    LireConstante(cle, k);
    const QList<QPair<const char*, long long>> soldes = {
        {"512", 2000000}, {"2183", 1000000}, {"101", 1500000}, {"164", 1500000}};
    for (const auto& [numero, centimes] : soldes) {
        table::Compte c;
        LireCompte(cle, QString::fromLatin1(numero), c);
        c.Sde = Montant::depuisCentimes(centimes);
        c.Solde = c.Sde + c.CumD + c.CumC;
        MajCompte(cle, c.NumCpt, c);
        const bool actif = c.ErCpt.trimmed() == QLatin1String("E1");
        (actif ? k.SDE1 : k.SDR1) += c.Sde;
        (actif ? k.E1 : k.R1) += c.Sde;
        const QString bilan = c.Bilan.trimmed();
        if (bilan == QLatin1String("BIENS")) k.BIENS += c.Sde;
        if (bilan == QLatin1String("MD")) k.MD += c.Sde;
        if (bilan == QLatin1String("SN")) k.SN += c.Sde;
        if (bilan == QLatin1String("DAP")) k.DAP += c.Sde;
    }
    k.OuvertureClos = true;
    MajConstante(cle, k);
}

// Une ligne de wSaisie comme la saisie la laisse : montant positif quand le compte grandit
// de son côté naturel.
void Poser(const QString& numero, bool debit, long long centimes, const QString& journal,
           const QString& date, const QString& libelle) {
    const table::Compte& c = CompteDuPlan(numero);
    table::Saisie s = LigneSurCompte(c, journal);
    s.wDateEcr = date;
    s.wDatePiece = date;
    s.wNumCpt = numero;
    s.wLibEcr = libelle;
    const bool debitNaturel = c.ErCpt.startsWith(u'E');
    const Montant m = Montant::depuisCentimes(centimes);
    s.wMntEcr = debit == debitNaturel ? m : -m;
    s.wDCEcr = debit ? QStringLiteral("D") : QStringLiteral("C");
    s.wMenuLigne = journal + QStringLiteral("01");
    AjouterSaisie(s);
}

long long Tva(long long ht) {
    return (ht * 20 + 50) / 100;
}

class Activite {
public:
    explicit Activite(const Options& o) : o(o), hasard(o.graine) {}

    // Une opération tirée au sort ; rend son nombre de lignes.
    int Operation(const QString& date) {
        const int tirage = Entre(1, 100);
        Base().exec("DELETE FROM wSaisie");
        if (tirage <= 30) {
            // Le même tirage qu'avant, dans l'ordre où g++ évaluait les arguments.
            const long long ht = Entre(5000, 500000);
            const int client = static_cast<int>(Entre(0, o.clients - 1));
            PoserVente(client, ht, date);
            if (o.reglementsDesFactures) dues[client].push_back(ht + Tva(ht));
            return Passer(3);
        }
        if (tirage <= 55) {
            static const char* const charges[] = {"607", "6064", "6135", "6261"};
            const long long ht = Entre(2000, 300000);
            const QString f = Fournisseur(Entre(0, o.fournisseurs - 1));
            const QString lib = QStringLiteral("Facture ") + f;
            Poser(QString::fromLatin1(charges[Entre(0, 3)]), true, ht, "A", date, lib);
            Poser("44566", true, Tva(ht), "A", date, lib);
            Poser(f, false, ht + Tva(ht), "A", date, lib);
            return Passer(3);
        }
        if (tirage <= 75) {
            const int client = static_cast<int>(Entre(0, o.clients - 1));
            const QString c = Client(client);
            long long m = Entre(5000, 400000);
            if (o.reglementsDesFactures && !dues[client].empty()) {
                m = dues[client].front();
                dues[client].pop_front();
            }
            Poser("512", true, m, "T", date, QStringLiteral("Règlement ") + c);
            Poser(c, false, m, "T", date, QStringLiteral("Règlement ") + c);
            return Passer(2);
        }
        if (tirage <= 90) {
            const QString f = Fournisseur(Entre(0, o.fournisseurs - 1));
            const long long m = Entre(2000, 300000);
            Poser(f, true, m, "T", date, QStringLiteral("Paiement ") + f);
            Poser("512", false, m, "T", date, QStringLiteral("Paiement ") + f);
            return Passer(2);
        }
        static const char* const banque[] = {"627", "6611", "6411", "6451"};
        const QString compte = QString::fromLatin1(banque[Entre(0, 3)]);
        const long long m = Entre(500, 250000);
        Poser(compte, true, m, "T", date, QStringLiteral("Prélèvement"));
        Poser("512", false, m, "T", date, QStringLiteral("Prélèvement"));
        return Passer(2);
    }

    long long Entre(long long a, long long b) {
        return std::uniform_int_distribution<long long>(a, b)(hasard);
    }

private:
    int Passer(int lignes) {
        PasserSaisie();
        return lignes;
    }

    const Options& o;
    std::mt19937_64 hasard;
    std::map<int, std::deque<long long>> dues; // factures encore dues, par client
};

void CopierBase(const QString& de, const QString& vers) {
    QDir().mkpath(vers);
    for (const char* f : {"maroval.mdb", "maroval.ini"}) {
        const QString cible = QDir(vers).filePath(QString::fromLatin1(f));
        QFile::remove(cible);
        if (!QFile::copy(QDir(de).filePath(QString::fromLatin1(f)), cible))
            throw std::runtime_error("copie impossible vers " + cible.toStdString());
    }
    for (const char* f : {"maroval.mdb-wal", "maroval.mdb-shm"})
        QFile::remove(QDir(vers).filePath(QString::fromLatin1(f)));
}

} // namespace

void OuvrirGenere(const QString& dossier) {
    FixerSession(dossier);
    OuvrirBase(dossier);
    RetenirComptes();
}

Resultat GenererPuisOuvrir(const QString& dossier, int lignesVisees, int clients,
                           int fournisseurs) {
    Options o;
    o.dossier = dossier;
    o.lignesVisees = lignesVisees;
    o.clients = clients;
    o.fournisseurs = fournisseurs;
    const Resultat r = Generer(o);
    OuvrirGenere(dossier);
    return r;
}

void PoserVente(int client, long long htCentimes, const QString& date) {
    const QString c = Client(client);
    const QString lib = QStringLiteral("Facture ") + c;
    Poser(c, true, htCentimes + Tva(htCentimes), "V", date, lib);
    Poser("7071", false, htCentimes, "V", date, lib);
    Poser("44571", false, Tva(htCentimes), "V", date, lib);
}

void PasserSaisie() {
    if (!ControlerEquilibre()) throw std::runtime_error("opération déséquilibrée");
    table::Constante k;
    LireConstante(Cle(), k);
    PasserEcriture(QString::number(k.LastNumEcrit + 1, 'f', 0), QStringLiteral("E"));
}

Resultat Generer(const Options& o) {
    QElapsedTimer chrono;
    chrono.start();
    const bool memoire = o.enMemoire && QDir(QStringLiteral("/dev/shm")).exists();
    const QString travail = memoire ? QStringLiteral("/dev/shm/maroval-gen-") +
                                          QUuid::createUuid().toString(QUuid::Id128)
                                    : o.dossier;
    QDir().mkpath(travail);
    for (const char* f : {"maroval.mdb", "maroval.mdb-wal", "maroval.mdb-shm"})
        QFile::remove(QDir(travail).filePath(QString::fromLatin1(f)));
    InstallerConfiguration(travail);
    FixerSession(travail);
    OuvrirBase(travail);

    table::Societe soc;
    soc.Nom = session().NomSocCourante;
    soc.Ville = QStringLiteral("Lyon");
    AjouterSociete(soc);
    table::Constante k;
    k.CleCon = Cle();
    k.DateSaisie = QStringLiteral("20240102");
    k.DateDebut = QStringLiteral("20240101");
    k.DateFin = QStringLiteral("20241231");
    k.SymboleMon = QStringLiteral("E");
    AjouterConstante(k);
    FairePlan(o);
    FaireOuverture();
    RetenirComptes();

    Resultat r;
    r.cle = Cle();
    Activite activite(o);
    const int mois = std::clamp(o.mois, 1, 12);
    const int parMois = std::max(1, o.lignesVisees / mois);
    for (int m = 1; m <= mois; ++m) {
        int lignesDuMois = 0;
        while (lignesDuMois < parMois) {
            const int jour = static_cast<int>(activite.Entre(1, 28));
            session().DateSaisieCourante = QStringLiteral("%1/%2/%3")
                                               .arg(jour, 2, 10, QLatin1Char('0'))
                                               .arg(m, 2, 10, QLatin1Char('0'))
                                               .arg(Exercice);
            const QString date = QStringLiteral("%1%2%3")
                                     .arg(Exercice)
                                     .arg(m, 2, 10, QLatin1Char('0'))
                                     .arg(jour, 2, 10, QLatin1Char('0'));
            lignesDuMois += activite.Operation(date);
            ++r.ecritures;
        }
        r.lignes += lignesDuMois;
    }
    Base().exec("DELETE FROM wSaisie");
    FermerBase();
    if (memoire) {
        CopierBase(travail, o.dossier);
        QDir(travail).removeRecursively();
    }
    r.secondes = chrono.elapsed() / 1000.0;
    return r;
}

} // namespace generateur
