#include "base/Szdd.h"

#include <array>
#include <cstdint>
#include <vector>

namespace {

constexpr char Signature[8] = {'S', 'Z', 'D', 'D', '\x88', '\xf0', '\x27', '\x33'};
constexpr int TailleEntete = 14;
constexpr int Fenetre = 4096;
constexpr int DepartFenetre = Fenetre - 16;
constexpr int LongueurMin = 3, LongueurMax = 18;
// Une correspondance ne remonte pas plus loin que la fenêtre moins une longueur : la copie
// ne relit jamais une case qu'elle vient d'écraser.
constexpr int DistanceMax = Fenetre - LongueurMax;
constexpr int Essais = 48;

void Erreur(QString* erreur, const QString& texte) {
    if (erreur) *erreur = texte;
}

} // namespace

QByteArray CompresserSzdd(const QByteArray& donnees, char caractereRemplace) {
    const auto* d = reinterpret_cast<const unsigned char*>(donnees.constData());
    const std::size_t n = static_cast<std::size_t>(donnees.size());
    // La taille d'origine tient sur quatre octets dans l'en-tête.
    if (n > 0xFFFFFFFFu) return {};
    QByteArray sortie(Signature, 8);
    sortie += 'A';
    sortie += caractereRemplace;
    const auto taille = static_cast<std::uint32_t>(n);
    for (int i = 0; i < 4; ++i)
        sortie += static_cast<char>((taille >> (8 * i)) & 0xFF);
    sortie.reserve(TailleEntete + static_cast<qsizetype>(n) + static_cast<qsizetype>(n / 8) + 1);

    // Chaînes de hachage sur trois octets : tete[h] la dernière position, precedent[p] la
    // position d'avant de même hachage.
    constexpr int BitsHachage = 15;
    std::vector<std::int64_t> tete(std::size_t(1) << BitsHachage, -1);
    // Seules les positions de la fenêtre servent : un anneau de 4 096 suffit.
    std::vector<std::int64_t> precedent(Fenetre, -1);
    const auto hachage = [&](std::size_t p) {
        return ((static_cast<std::uint32_t>(d[p]) << 10) ^
                (static_cast<std::uint32_t>(d[p + 1]) << 5) ^ d[p + 2]) &
               ((1u << BitsHachage) - 1);
    };
    const auto inserer = [&](std::size_t p) {
        if (p + 2 >= n) return;
        const auto h = hachage(p);
        precedent[p % Fenetre] = tete[h];
        tete[h] = static_cast<std::int64_t>(p);
    };

    std::size_t p = 0;
    while (p < n) {
        const qsizetype positionDrapeaux = sortie.size();
        sortie += '\0';
        unsigned char drapeaux = 0;
        for (int bit = 0; bit < 8 && p < n; ++bit) {
            int meilleure = 0;
            std::size_t source = 0;
            if (p + LongueurMin <= n) {
                const std::size_t maximum = std::min<std::size_t>(LongueurMax, n - p);
                std::int64_t candidat = tete[hachage(p)];
                for (int essai = 0; candidat >= 0 && essai < Essais; ++essai) {
                    const auto c = static_cast<std::size_t>(candidat);
                    if (p - c > static_cast<std::size_t>(DistanceMax)) break;
                    std::size_t l = 0;
                    while (l < maximum && d[c + l] == d[p + l])
                        ++l;
                    if (static_cast<int>(l) > meilleure) {
                        meilleure = static_cast<int>(l);
                        source = c;
                        if (l == maximum) break;
                    }
                    candidat = precedent[c % Fenetre];
                }
            }
            if (meilleure >= LongueurMin) {
                // Position dans la fenêtre du décompresseur, qui commence à 4 080.
                const int position = static_cast<int>((DepartFenetre + source) % Fenetre);
                sortie += static_cast<char>(position & 0xFF);
                sortie += static_cast<char>(((position >> 4) & 0xF0) | (meilleure - LongueurMin));
                for (int k = 0; k < meilleure; ++k)
                    inserer(p + static_cast<std::size_t>(k));
                p += static_cast<std::size_t>(meilleure);
            } else {
                drapeaux |= static_cast<unsigned char>(1u << bit);
                sortie += static_cast<char>(d[p]);
                inserer(p);
                ++p;
            }
        }
        sortie[positionDrapeaux] = static_cast<char>(drapeaux);
    }
    return sortie;
}

bool DecompresserSzdd(const QByteArray& compresse, QByteArray& donnees, QString* erreur,
                      qint64 limite) {
    donnees.clear();
    if (compresse.size() < TailleEntete || !compresse.startsWith(QByteArray(Signature, 8))) {
        Erreur(erreur, QStringLiteral("le fichier n'est pas un fichier compressé de disquette"));
        return false;
    }
    if (compresse.at(8) != 'A') {
        Erreur(erreur, QStringLiteral("le mode de compression du fichier est inconnu"));
        return false;
    }
    const auto* c = reinterpret_cast<const unsigned char*>(compresse.constData());
    const qint64 attendu = static_cast<qint64>(c[10]) | (static_cast<qint64>(c[11]) << 8) |
                           (static_cast<qint64>(c[12]) << 16) | (static_cast<qint64>(c[13]) << 24);
    if (attendu > limite) {
        Erreur(erreur, QStringLiteral("la taille annoncée du fichier est invraisemblable"));
        return false;
    }
    donnees.resize(static_cast<qsizetype>(attendu));
    auto* sortie = reinterpret_cast<unsigned char*>(donnees.data());
    std::array<unsigned char, Fenetre> fenetre;
    fenetre.fill(' ');
    int position = DepartFenetre;
    qint64 ecrits = 0;
    const qint64 fin = compresse.size();
    qint64 lu = TailleEntete;
    while (lu < fin && ecrits < attendu) {
        const unsigned char drapeaux = c[lu++];
        for (int bit = 0; bit < 8 && lu < fin && ecrits < attendu; ++bit) {
            if (drapeaux & (1u << bit)) {
                const unsigned char octet = c[lu++];
                sortie[ecrits++] = octet;
                fenetre[static_cast<std::size_t>(position)] = octet;
                position = (position + 1) & (Fenetre - 1);
            } else {
                if (lu + 1 >= fin) {
                    lu = fin;
                    break;
                }
                const int b1 = c[lu], b2 = c[lu + 1];
                lu += 2;
                int source = b1 | ((b2 & 0xF0) << 4);
                const int longueur = (b2 & 0x0F) + LongueurMin;
                for (int k = 0; k < longueur && ecrits < attendu; ++k) {
                    const unsigned char octet = fenetre[static_cast<std::size_t>(source)];
                    sortie[ecrits++] = octet;
                    fenetre[static_cast<std::size_t>(position)] = octet;
                    position = (position + 1) & (Fenetre - 1);
                    source = (source + 1) & (Fenetre - 1);
                }
            }
        }
    }
    if (ecrits != attendu) {
        donnees.clear();
        Erreur(erreur, QStringLiteral("le fichier compressé est tronqué ou abîmé"));
        return false;
    }
    return true;
}
