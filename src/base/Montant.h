#pragma once
// Montant : entier signé de 64 bits comptant des dix-millièmes.
// Jamais de flottant dans la base ni dans les sommes : les additions restent exactes.

#include <QString>
#include <compare>
#include <cstdint>

class Montant {
public:
    constexpr Montant() = default;
    static constexpr Montant depuisDixMilliemes(std::int64_t v) { return Montant(v); }
    static constexpr Montant depuisCentimes(std::int64_t c) { return Montant(c * 100); }
    static constexpr Montant depuisUnites(std::int64_t u) { return Montant(u * 10000); }
    // Conversion au dix-millième le plus proche (moitié loin de zéro) ; pour l'affichage
    // et les calculs de proportion seulement. NaN donne 0, l'infini la limite.
    static Montant depuisDouble(double v);

    constexpr std::int64_t dixMilliemes() const { return v_; }
    double enDouble() const { return static_cast<double>(v_) / 10000.0; }
    constexpr bool estNul() const { return v_ == 0; }
    constexpr Montant abs() const { return Montant(v_ < 0 ? -v_ : v_); }

    constexpr Montant operator-() const { return Montant(-v_); }
    constexpr Montant operator+(Montant o) const { return Montant(v_ + o.v_); }
    constexpr Montant operator-(Montant o) const { return Montant(v_ - o.v_); }
    constexpr Montant& operator+=(Montant o) {
        v_ += o.v_;
        return *this;
    }
    constexpr Montant& operator-=(Montant o) {
        v_ -= o.v_;
        return *this;
    }
    constexpr auto operator<=>(const Montant&) const = default;

private:
    constexpr explicit Montant(std::int64_t v) : v_(v) {}
    std::int64_t v_ = 0;
};

// Plus grand montant accepté en unités (les montants en usage restent sous 10^12).
// Lu au-delà, un texte donne 0 ; un arrondi au-delà est ramené à cette limite.
inline constexpr std::int64_t MontantLimiteUnites = 900'000'000'000'000;

// Au-delà, les décimales affichées ne seraient que des zéros : on borne le texte construit.
inline constexpr int NbDecimalesMax = 10;

// Arrondi à deux décimales : partie entière par plancher, puis centimes de la fraction
// arrondis au pair. Calcul exact sur les dix-millièmes.
Montant ArrondiMontant(Montant montant);

// Arrondi à n décimales (0 à 4), moitié loin de zéro : celui de l'affichage.
Montant ArrondiLoinDeZero(Montant montant, int decimales);

// Lecture d'un montant tapé : première virgule en point, blancs ignorés, lecture jusqu'au
// premier caractère qui ne peut pas continuer un nombre, 0 en cas d'erreur, puis arrondi
// à deux décimales par l'image "###,###,###,##0.00". Un texte au-delà de la limite donne 0.
Montant MontantDepuisTexte(const QString& texte);

// Image fixe "###,###,###,##0.00" : deux décimales, moitié loin de zéro sur le texte
// décimal, milliers séparés par une espace, virgule décimale ("-0,50", "0,00").
QString FormatFixe(Montant montant);

// Affichage selon une image de la forme de FormatMontant de la session
// ("### ### ### ##0.00 E", "### ### ### ##0 E"...) : chiffres groupés par trois,
// décimales de l'image arrondies loin de zéro, virgule, puis la fin de l'image telle quelle.
// Un montant qui s'arrondit à zéro s'écrit sans signe.
QString FormaterMontant(Montant montant, const QString& image);

// "0" pour 0 décimale ou moins, sinon "0." suivi d'autant de "0" (au plus NbDecimalesMax).
QString ConstruireDecimales(int nbDecimales);

// "### ### ### ##", les décimales, " ", le symbole.
QString ConstruireFormatMontant(const QString& decimales, const QString& symbole);
