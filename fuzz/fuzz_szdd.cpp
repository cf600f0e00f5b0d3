// Cible libFuzzer du décompresseur des disquettes : n'importe quels octets, jamais une lecture
// ni une écriture hors des tampons ; et ce que le compresseur écrit se relit à l'identique.
#include "base/Szdd.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
    const QByteArray entree(reinterpret_cast<const char*>(donnees), static_cast<qsizetype>(taille));
    QByteArray sortie;
    QString erreur;
    // Une taille annoncée de plus de 4 Mo est refusée : le fuzzer ne doit pas tout allouer.
    DecompresserSzdd(entree, sortie, &erreur, 4 * 1024 * 1024);
    QByteArray relu;
    if (!DecompresserSzdd(CompresserSzdd(entree, 'b'), relu) || relu != entree) std::abort();
    return 0;
}
