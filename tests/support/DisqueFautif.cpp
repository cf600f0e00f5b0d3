#include "support/DisqueFautif.h"

#include <array>
#include <cstring>
#include <sqlite3.h>

namespace support {

namespace {

struct Etat {
    std::array<int, 3> comptes{};
    bool armee = false;
    Acces acces = Acces::Ecriture;
    int rang = 0;
    Panne panne = Panne::ErreurDisque;
    bool durable = false;
    bool survenue = false;
};

Etat g_etat;
sqlite3_vfs* g_systeme = nullptr;
sqlite3_vfs g_vfs;

// Le fichier de SQLite, suivi du fichier réel du VFS du système.
struct Fichier {
    sqlite3_file base;
    sqlite3_file* reel() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

Fichier* Enveloppe(sqlite3_file* f) {
    return reinterpret_cast<Fichier*>(f);
}

// Vrai si cet accès doit échouer ; le compte avance dans tous les cas.
bool Echoue(Acces acces) {
    const int n = ++g_etat.comptes[static_cast<int>(acces)];
    if (!g_etat.armee || g_etat.acces != acces) return false;
    if (n == g_etat.rang || (g_etat.durable && n > g_etat.rang)) {
        g_etat.survenue = true;
        return true;
    }
    return false;
}

int CodePanne(Acces acces) {
    if (g_etat.panne == Panne::DisquePlein && acces == Acces::Ecriture) return SQLITE_FULL;
    switch (acces) {
    case Acces::Lecture:
        return SQLITE_IOERR_READ;
    case Acces::Ecriture:
        return SQLITE_IOERR_WRITE;
    case Acces::Synchro:
        return SQLITE_IOERR_FSYNC;
    }
    return SQLITE_IOERR;
}

int Fermer(sqlite3_file* f) {
    sqlite3_file* r = Enveloppe(f)->reel();
    const int rc = r->pMethods ? r->pMethods->xClose(r) : SQLITE_OK;
    f->pMethods = nullptr;
    return rc;
}
int Lire(sqlite3_file* f, void* tampon, int n, sqlite3_int64 position) {
    if (Echoue(Acces::Lecture)) return CodePanne(Acces::Lecture);
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xRead(r, tampon, n, position);
}
int Ecrire(sqlite3_file* f, const void* tampon, int n, sqlite3_int64 position) {
    if (Echoue(Acces::Ecriture)) return CodePanne(Acces::Ecriture);
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xWrite(r, tampon, n, position);
}
int Tronquer(sqlite3_file* f, sqlite3_int64 taille) {
    // Raccourcir un fichier est une écriture pour le disque.
    if (Echoue(Acces::Ecriture)) return CodePanne(Acces::Ecriture);
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xTruncate(r, taille);
}
int Synchroniser(sqlite3_file* f, int drapeaux) {
    if (Echoue(Acces::Synchro)) return CodePanne(Acces::Synchro);
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xSync(r, drapeaux);
}

// Le reste passe tel quel au fichier réel.
int Taille(sqlite3_file* f, sqlite3_int64* t) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xFileSize(r, t);
}
int Verrouiller(sqlite3_file* f, int n) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xLock(r, n);
}
int Deverrouiller(sqlite3_file* f, int n) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xUnlock(r, n);
}
int VerrouReserve(sqlite3_file* f, int* n) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xCheckReservedLock(r, n);
}
int Controle(sqlite3_file* f, int op, void* arg) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xFileControl(r, op, arg);
}
int TailleSecteur(sqlite3_file* f) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xSectorSize(r);
}
int Caracteristiques(sqlite3_file* f) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xDeviceCharacteristics(r);
}
int ShmMap(sqlite3_file* f, int page, int taille, int etendre, void volatile** p) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xShmMap(r, page, taille, etendre, p);
}
int ShmLock(sqlite3_file* f, int debut, int n, int drapeaux) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xShmLock(r, debut, n, drapeaux);
}
void ShmBarrier(sqlite3_file* f) {
    sqlite3_file* r = Enveloppe(f)->reel();
    r->pMethods->xShmBarrier(r);
}
int ShmUnmap(sqlite3_file* f, int supprimer) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->xShmUnmap(r, supprimer);
}
int Fetch(sqlite3_file* f, sqlite3_int64 position, int n, void** p) {
    // Pas de lecture par projection en mémoire : chaque lecture passe par Lire.
    (void)f;
    (void)position;
    (void)n;
    *p = nullptr;
    return SQLITE_OK;
}
int Unfetch(sqlite3_file* f, sqlite3_int64 position, void* p) {
    sqlite3_file* r = Enveloppe(f)->reel();
    return r->pMethods->iVersion >= 3 ? r->pMethods->xUnfetch(r, position, p) : SQLITE_OK;
}

const sqlite3_io_methods g_methodes = {
    3,           Fermer,        Lire,          Ecrire,   Tronquer,      Synchroniser,     Taille,
    Verrouiller, Deverrouiller, VerrouReserve, Controle, TailleSecteur, Caracteristiques, ShmMap,
    ShmLock,     ShmBarrier,    ShmUnmap,      Fetch,    Unfetch};

int Ouvrir(sqlite3_vfs*, sqlite3_filename nom, sqlite3_file* f, int drapeaux, int* sortie) {
    sqlite3_file* r = Enveloppe(f)->reel();
    std::memset(r, 0, static_cast<size_t>(g_systeme->szOsFile));
    f->pMethods = nullptr;
    const int rc = g_systeme->xOpen(g_systeme, nom, r, drapeaux, sortie);
    if (rc == SQLITE_OK && r->pMethods) f->pMethods = &g_methodes;
    return rc;
}

int Supprimer(sqlite3_vfs*, const char* nom, int sync) {
    return g_systeme->xDelete(g_systeme, nom, sync);
}
int Acceder(sqlite3_vfs*, const char* nom, int drapeaux, int* sortie) {
    return g_systeme->xAccess(g_systeme, nom, drapeaux, sortie);
}
int NomComplet(sqlite3_vfs*, const char* nom, int n, char* sortie) {
    return g_systeme->xFullPathname(g_systeme, nom, n, sortie);
}
int Hasard(sqlite3_vfs*, int n, char* sortie) {
    return g_systeme->xRandomness(g_systeme, n, sortie);
}
int Dormir(sqlite3_vfs*, int us) {
    return g_systeme->xSleep(g_systeme, us);
}
int Heure(sqlite3_vfs*, double* t) {
    return g_systeme->xCurrentTime(g_systeme, t);
}
int DerniereErreur(sqlite3_vfs*, int n, char* sortie) {
    return g_systeme->xGetLastError ? g_systeme->xGetLastError(g_systeme, n, sortie) : 0;
}
int HeureEntiere(sqlite3_vfs*, sqlite3_int64* t) {
    return g_systeme->xCurrentTimeInt64(g_systeme, t);
}

} // namespace

void InstallerDisqueFautif() {
    if (g_systeme) return;
    g_systeme = sqlite3_vfs_find(nullptr);
    std::memset(&g_vfs, 0, sizeof g_vfs);
    g_vfs.iVersion = 2;
    g_vfs.szOsFile = static_cast<int>(sizeof(Fichier)) + g_systeme->szOsFile;
    g_vfs.mxPathname = g_systeme->mxPathname;
    g_vfs.zName = "disque-fautif";
    g_vfs.xOpen = Ouvrir;
    g_vfs.xDelete = Supprimer;
    g_vfs.xAccess = Acceder;
    g_vfs.xFullPathname = NomComplet;
    g_vfs.xRandomness = Hasard;
    g_vfs.xSleep = Dormir;
    g_vfs.xCurrentTime = Heure;
    g_vfs.xGetLastError = DerniereErreur;
    g_vfs.xCurrentTimeInt64 = HeureEntiere;
    sqlite3_vfs_register(&g_vfs, 1);
}

void RemettreDisqueAZero() {
    g_etat = Etat();
}

int NombreAcces(Acces acces) {
    return g_etat.comptes[static_cast<int>(acces)];
}

void ArmerPanne(Acces acces, int rang, Panne panne, bool durable) {
    g_etat.armee = true;
    g_etat.acces = acces;
    g_etat.rang = rang;
    g_etat.panne = panne;
    g_etat.durable = durable;
    g_etat.survenue = false;
}

bool PanneSurvenue() {
    return g_etat.survenue;
}

QString NomAcces(Acces acces) {
    switch (acces) {
    case Acces::Lecture:
        return QStringLiteral("lecture");
    case Acces::Ecriture:
        return QStringLiteral("écriture");
    case Acces::Synchro:
        return QStringLiteral("synchronisation");
    }
    return QString();
}

} // namespace support
