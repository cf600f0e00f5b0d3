#include "base/Montant.h"

#include "base/Texte.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::int64_t DixMilliemesParUnite = 10000;
constexpr std::int64_t Limite = MontantLimiteUnites * DixMilliemesParUnite;
constexpr std::int64_t LimiteCentimes = Limite / 100;
constexpr std::array<std::int64_t, 5> Puissances10 = {1, 10, 100, 1000, 10000};

// Les calculs restent dans la limite : aucun débordement possible ensuite.
std::int64_t Borne(std::int64_t v) {
    if (v > Limite) return Limite;
    if (v < -Limite) return -Limite;
    return v;
}

// Valeur absolue sans débordement, même pour le plus petit entier.
std::uint64_t Absolu(std::int64_t v) {
    return v < 0 ? 0 - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
}

// Chiffres groupés par trois, ajoutés au texte (une liste de milliers de montants se
// forme sans copie intermédiaire).
void GrouperParTrois(std::uint64_t entier, QString& texte) {
    const QString chiffres = QString::number(entier);
    const qsizetype n = chiffres.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) texte += u' ';
        texte += chiffres[i];
    }
}

// Texte du montant à n décimales arrondies loin de zéro ; au-delà de quatre décimales
// le montant n'a plus que des zéros à montrer.
QString TexteDecimal(std::int64_t v, int decimales) {
    const int exactes = std::min(decimales, 4);
    const auto pas = static_cast<std::uint64_t>(Puissances10[4 - exactes]);
    const std::uint64_t arrondi = (Absolu(v) + pas / 2) / pas;
    const auto unite = static_cast<std::uint64_t>(Puissances10[exactes]);
    QString texte;
    // La place du symbole qui suit souvent est prise d'avance.
    texte.reserve(32 + decimales);
    if (v < 0 && arrondi != 0) texte += u'-';
    GrouperParTrois(arrondi / unite, texte);
    if (decimales > 0) {
        texte += u',';
        if (exactes > 0) {
            const QString fraction = QString::number(arrondi % unite);
            for (qsizetype i = fraction.size(); i < exactes; ++i)
                texte += u'0';
            texte += fraction;
        }
        for (int i = exactes; i < decimales; ++i)
            texte += u'0';
    }
    return texte;
}

struct NombreLu {
    bool negatif = false;
    QString chiffres;          // chiffres significatifs, sans les zéros de tête
    std::int64_t position = 0; // valeur = 0,chiffres x 10^position
};

constexpr qsizetype ChiffresUtiles = 20;
constexpr std::int64_t ExposantMax = 1'000'000;

class Lecteur {
public:
    explicit Lecteur(const QString& s) : s_(s) {}

    // Signe, chiffres, point, exposant ; les blancs sont sautés partout.
    bool Lire(NombreLu& nombre) {
        Sauter();
        if (i_ < s_.size() && (s_[i_] == u'+' || s_[i_] == u'-')) {
            nombre.negatif = s_[i_] == u'-';
            ++i_;
        }
        if (!LireMantisse(nombre)) return false;
        nombre.position += LireExposant();
        return true;
    }

private:
    void Sauter() {
        while (i_ < s_.size() && EstBlanc(s_[i_]))
            ++i_;
    }

    bool LireMantisse(NombreLu& nombre) {
        bool chiffreVu = false;
        bool pointVu = false;
        for (Sauter(); i_ < s_.size(); ++i_, Sauter()) {
            const QChar c = s_[i_];
            if (c == u'.' && !pointVu) {
                pointVu = true;
            } else if (EstChiffre(c)) {
                chiffreVu = true;
                if (nombre.chiffres.isEmpty() && c == u'0') {
                    if (pointVu) --nombre.position;
                    continue;
                }
                if (nombre.chiffres.size() < ChiffresUtiles) nombre.chiffres += c;
                if (!pointVu) ++nombre.position;
            } else {
                break;
            }
        }
        return chiffreVu;
    }

    // Un "E" sans chiffres derrière n'est pas un exposant (symbole de l'euro).
    std::int64_t LireExposant() {
        if (i_ >= s_.size() || (s_[i_] != u'E' && s_[i_] != u'e')) return 0;
        qsizetype j = i_ + 1;
        auto sauter = [&] {
            while (j < s_.size() && EstBlanc(s_[j]))
                ++j;
        };
        sauter();
        bool negatif = false;
        if (j < s_.size() && (s_[j] == u'+' || s_[j] == u'-')) {
            negatif = s_[j] == u'-';
            ++j;
        }
        std::int64_t exposant = 0;
        bool chiffreVu = false;
        for (sauter(); j < s_.size() && EstChiffre(s_[j]); ++j, sauter()) {
            chiffreVu = true;
            exposant = std::min(ExposantMax, exposant * 10 + (s_[j].unicode() - u'0'));
        }
        if (!chiffreVu) return 0;
        i_ = j;
        return negatif ? -exposant : exposant;
    }

    const QString& s_;
    qsizetype i_ = 0;
};

// Centimes, moitié loin de zéro sur le texte décimal ; -1 au-delà de la limite.
std::int64_t CentimesArrondis(const NombreLu& nombre) {
    if (nombre.chiffres.isEmpty()) return 0;
    const std::int64_t nbChiffres = nombre.position + 2;
    if (nbChiffres > 17) return -1;
    if (nbChiffres < 0) return 0;
    auto chiffre = [&](std::int64_t k) {
        return k < nombre.chiffres.size() ? nombre.chiffres[k].unicode() - u'0' : 0;
    };
    std::int64_t centimes = 0;
    for (std::int64_t k = 0; k < nbChiffres; ++k)
        centimes = centimes * 10 + chiffre(k);
    if (chiffre(nbChiffres) >= 5) ++centimes;
    return centimes > LimiteCentimes ? -1 : centimes;
}

} // namespace

Montant Montant::depuisDouble(double v) {
    if (std::isnan(v)) return Montant();
    const double dixMilliemes = v * static_cast<double>(DixMilliemesParUnite);
    if (dixMilliemes >= static_cast<double>(Limite)) return Montant(Limite);
    if (dixMilliemes <= static_cast<double>(-Limite)) return Montant(-Limite);
    return Montant(std::llround(dixMilliemes));
}

Montant ArrondiMontant(Montant montant) {
    const std::int64_t v = Borne(montant.dixMilliemes());
    // Plancher : la division du C++ tronque vers zéro.
    std::int64_t entier = v / DixMilliemesParUnite;
    if (v % DixMilliemesParUnite < 0) --entier;
    const std::int64_t fraction = v - entier * DixMilliemesParUnite;
    std::int64_t centimes = fraction / 100;
    const std::int64_t reste = fraction % 100;
    if (reste > 50 || (reste == 50 && centimes % 2 == 1)) ++centimes;
    return Montant::depuisDixMilliemes(entier * DixMilliemesParUnite + centimes * 100);
}

Montant ArrondiLoinDeZero(Montant montant, int decimales) {
    const std::int64_t v = Borne(montant.dixMilliemes());
    if (decimales >= 4) return Montant::depuisDixMilliemes(v);
    const std::int64_t pas = Puissances10[4 - std::max(decimales, 0)];
    const std::int64_t arrondi = (Absolu(v) + pas / 2) / pas * pas;
    return Montant::depuisDixMilliemes(v < 0 ? -arrondi : arrondi);
}

Montant MontantDepuisTexte(const QString& texte) {
    QString s = texte;
    const qsizetype virgule = s.indexOf(u',');
    if (virgule >= 0) s[virgule] = u'.';
    NombreLu nombre;
    if (!Lecteur(s).Lire(nombre)) return Montant();
    const std::int64_t centimes = CentimesArrondis(nombre);
    if (centimes < 0) return Montant();
    return Montant::depuisCentimes(nombre.negatif ? -centimes : centimes);
}

QString FormatFixe(Montant montant) {
    return TexteDecimal(montant.dixMilliemes(), 2);
}

QString FormaterMontant(Montant montant, const QString& image) {
    // Partie chiffrée : "#", "0" et espaces, puis éventuellement le point et ses "0".
    qsizetype fin = 0;
    while (fin < image.size() && (image[fin] == u'#' || image[fin] == u'0' || image[fin] == u' '))
        ++fin;
    qsizetype finChiffres = fin;
    while (finChiffres > 0 && image[finChiffres - 1] == u' ')
        --finChiffres;
    int decimales = 0;
    qsizetype debutSuite = finChiffres;
    if (finChiffres == fin && fin < image.size() && (image[fin] == u'.' || image[fin] == u',')) {
        debutSuite = fin + 1;
        while (debutSuite < image.size() && image[debutSuite] == u'0') {
            ++decimales;
            ++debutSuite;
        }
    }
    QString texte = TexteDecimal(montant.dixMilliemes(), decimales);
    texte += QStringView(image).mid(debutSuite);
    return texte;
}

QString ConstruireDecimales(int nbDecimales) {
    if (nbDecimales <= 0) return QStringLiteral("0");
    return QStringLiteral("0.") + QString(std::min(nbDecimales, NbDecimalesMax), u'0');
}

QString ConstruireFormatMontant(const QString& decimales, const QString& symbole) {
    return QStringLiteral("### ### ### ##") + decimales + u' ' + symbole;
}
