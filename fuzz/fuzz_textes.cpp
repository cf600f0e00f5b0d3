// Entrées quelconques pour la lecture des montants, les dates, les petites routines de texte
// et le fichier de profil. Au-delà de l'absence de plantage, chaque routine doit tenir ce
// qu'elle promet : une violation arrête le fuzzer.

#include "base/Montant.h"
#include "base/Texte.h"
#include "session/FichierProfil.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

void Exiger(bool condition) {
    if (!condition) std::abort();
}

constexpr std::int64_t Limite = MontantLimiteUnites * 10000;

void EprouverMontant(const QString& texte, const QByteArray& octets) {
    const Montant lu = MontantDepuisTexte(texte);
    Exiger(lu.dixMilliemes() % 100 == 0);
    Exiger(lu.dixMilliemes() <= Limite && lu.dixMilliemes() >= -Limite);
    // Un montant à deux décimales se relit tel quel, par l'image fixe comme par l'affichage.
    Exiger(MontantDepuisTexte(FormatFixe(lu)) == lu);
    for (int n = 0; n <= 4; ++n) {
        const QString image = ConstruireFormatMontant(ConstruireDecimales(n), QStringLiteral("E"));
        Exiger(MontantDepuisTexte(FormaterMontant(lu, image)) == ArrondiLoinDeZero(lu, n));
    }
    FormaterMontant(lu, texte); // l'image elle-même peut être n'importe quoi

    std::int64_t brut = 0;
    std::memcpy(&brut, octets.constData(), std::min<std::size_t>(sizeof brut, octets.size()));
    const std::int64_t arrondi = ArrondiMontant(Montant::depuisDixMilliemes(brut)).dixMilliemes();
    Exiger(arrondi % 100 == 0);
    FormatFixe(Montant::depuisDixMilliemes(brut));
}

void EprouverDates(const QString& texte) {
    const QString base = DateVersBase(texte);
    const QString ecran = DateVersEcran(texte);
    Exiger(base.isEmpty() || base.size() == 8);
    Exiger(ecran.isEmpty() || ecran.size() == 10);
    if (DateValide(texte)) Exiger(DateVersEcran(base) == texte);
}

void EprouverTextes(const QString& texte) {
    QString copie = texte;
    const QString double_ = DoublerGuillemets(copie);
    Exiger(copie == double_ && double_.size() == texte.size() + texte.count(u'"'));
    Exiger(SansEspaces(texte).size() <= texte.size());
    Exiger(PointVersVirgule(texte).size() <= texte.size());
    Exiger(VirguleVersPoint(texte).size() <= texte.size());
    TexteErreur(texte, static_cast<int>(texte.size()), texte);
}

QString ValeurRelue(const QString& valeur) {
    QString v = valeur.trimmed();
    if (v.size() >= 2 && v.startsWith(u'"') && v.endsWith(u'"')) v = v.mid(1, v.size() - 2);
    return v;
}

bool MemeNom(const QString& a, const QString& b) {
    return QString::compare(a.trimmed(), b.trimmed(), Qt::CaseInsensitive) == 0;
}

// Contenu, section, clé et valeur séparés par des octets nuls.
void EprouverProfil(const QByteArray& octets) {
    const QList<QByteArray> parties = octets.split('\0');
    const QByteArray& contenu = parties[0];
    const QString section = parties.size() > 1 ? QString::fromUtf8(parties[1]) : "Securite";
    const QString cle = parties.size() > 2 ? QString::fromUtf8(parties[2]) : "Dernum";
    const QString valeur = parties.size() > 3 ? QString::fromUtf8(parties[3]) : " 12 ";
    const QString temoinSection = QStringLiteral("Options");
    const QString temoinCle = QStringLiteral("SymbEu");

    FichierProfil::LireDansTexte(contenu, section, cle, QString());
    const QString temoinAvant = FichierProfil::LireDansTexte(contenu, temoinSection, temoinCle);
    const auto ecrit = FichierProfil::EcrireDansTexte(contenu, section, cle, valeur);
    if (ecrit) {
        const QString absent = QStringLiteral("\x01absent");
        Exiger(FichierProfil::LireDansTexte(*ecrit, section, cle, absent) == ValeurRelue(valeur));
        // Les autres clés ne bougent pas.
        if (!MemeNom(section, temoinSection) || !MemeNom(cle, temoinCle))
            Exiger(FichierProfil::LireDansTexte(*ecrit, temoinSection, temoinCle) == temoinAvant);
        // Une seconde écriture retrouve la clé au lieu d'en ajouter une autre.
        const auto reecrit = FichierProfil::EcrireDansTexte(*ecrit, section, cle, QString());
        Exiger(reecrit && FichierProfil::LireDansTexte(*reecrit, section, cle, absent).isEmpty());
        Exiger(reecrit->count('\n') == ecrit->count('\n'));
    }
    FichierProfil::EffacerDansTexte(contenu, section, cle);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
    const QByteArray octets(reinterpret_cast<const char*>(donnees), static_cast<qsizetype>(taille));
    const QString texte = QString::fromUtf8(octets);
    EprouverMontant(texte, octets);
    EprouverDates(texte);
    EprouverTextes(texte);
    EprouverProfil(octets);
    return 0;
}
