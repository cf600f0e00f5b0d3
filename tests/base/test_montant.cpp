// Arrondis, lecture d'un montant tapé et affichage des montants.

#include "base/Montant.h"

#include <QTest>

#include <limits>
#include <random>
#include <string>

namespace {

constexpr qint64 Unite = 10000;
constexpr qint64 MilleMilliards = 1'000'000'000'000 * Unite;

Montant M(std::int64_t dixMilliemes) {
    return Montant::depuisDixMilliemes(dixMilliemes);
}

// Arrondi de référence fait sur le texte décimal : on coupe après n décimales et on monte
// d'un cran si le chiffre suivant vaut 5 ou plus (moitié loin de zéro).
std::int64_t ArrondiSurLeTexte(std::int64_t v, int n) {
    if (n >= 4) return v;
    const bool negatif = v < 0;
    std::string chiffres = std::to_string(negatif ? -v : v);
    if (chiffres.size() < 5) chiffres.insert(0, 5 - chiffres.size(), '0');
    const std::size_t coupe = chiffres.size() - 4 + static_cast<std::size_t>(n);
    std::int64_t r = std::stoll(chiffres.substr(0, coupe));
    if (chiffres[coupe] >= '5') ++r;
    for (int k = n; k < 4; ++k)
        r *= 10;
    return negatif ? -r : r;
}

// Montants d'essai : bornes, moitiés, puissances de dix et tirages de toute la plage.
QList<std::int64_t> MontantsDEssai() {
    QList<std::int64_t> montants = {0, MilleMilliards, -MilleMilliards, MilleMilliards - 1,
                                    -MilleMilliards + 1};
    for (const std::int64_t v :
         {1,   49,   50,   51,   99,   100,  149,  150,  151,   499,   500,
          501, 4999, 5000, 5001, 9949, 9950, 9951, 9999, 10000, 10001, 10050}) {
        montants << v << -v;
    }
    for (std::int64_t p = 10; p <= MilleMilliards; p *= 10)
        for (const std::int64_t d : {-50, -1, 0, 1, 50})
            montants << p + d << -(p + d);
    std::mt19937_64 hasard(20240131);
    std::uniform_int_distribution<std::int64_t> toute(-MilleMilliards, MilleMilliards);
    std::uniform_int_distribution<std::int64_t> petite(-100 * Unite, 100 * Unite);
    for (int i = 0; i < 4000; ++i)
        montants << toute(hasard) << petite(hasard);
    return montants;
}

} // namespace

class TestMontant : public QObject {
    Q_OBJECT

private slots:
    void arrondiMontant_data();
    void arrondiMontant();
    void arrondiMontant_auCentimeLePlusProcheMoitieAuPair();
    void arrondiLoinDeZero_data();
    void arrondiLoinDeZero();
    void depuisDouble_data();
    void depuisDouble();
    void montantDepuisTexte_data();
    void montantDepuisTexte();
    void formatFixe_data();
    void formatFixe();
    void formatFixe_seRelitArrondiLoinDeZero();
    void formaterMontant_data();
    void formaterMontant();
    void construireDecimales_data();
    void construireDecimales();
    void construireFormatMontant_data();
    void construireFormatMontant();
    void formatMontant_seRelitCommeLeMontantAffiche();
};

void TestMontant::arrondiMontant_data() {
    QTest::addColumn<qint64>("avant");
    QTest::addColumn<qint64>("apres");
    QTest::newRow("moitieVaAuPairCent_1,125_donne_1,12") << 11250LL << 11200LL;
    QTest::newRow("moitieVaAuPairCent_1,375_donne_1,38") << 13750LL << 13800LL;
    QTest::newRow("moitieVaAuPairCent_0,015_donne_0,02") << 150LL << 200LL;
    QTest::newRow("moitieVaAuPairCent_0,025_donne_0,02") << 250LL << 200LL;
    QTest::newRow("moitieVaAuPairCent_0,005_donne_0") << 50LL << 0LL;
    QTest::newRow("negatifParPlancher_-1,125_donne_-1,12") << -11250LL << -11200LL;
    QTest::newRow("negatifParPlancher_-1,375_donne_-1,38") << -13750LL << -13800LL;
    QTest::newRow("negatifParPlancher_-1,135_donne_-1,14") << -11350LL << -11400LL;
    QTest::newRow("negatifParPlancher_-0,005_donne_0") << -50LL << 0LL;
    QTest::newRow("negatifParPlancher_-0,015_donne_-0,02") << -150LL << -200LL;
    QTest::newRow("auDessusDeLaMoitieMonte_1,1251") << 11251LL << 11300LL;
    QTest::newRow("auDessousDeLaMoitieDescend_1,1249") << 11249LL << 11200LL;
    QTest::newRow("negatifAuDessusDeLaMoitie_-1,1249") << -11249LL << -11200LL;
    QTest::newRow("negatifAuDessousDeLaMoitie_-1,1251") << -11251LL << -11300LL;
    QTest::newRow("centVaAUniteSuivante_0,995_donne_1") << 9950LL << 10000LL;
    QTest::newRow("centVaAUniteSuivante_1,995_donne_2") << 19950LL << 20000LL;
    QTest::newRow("dejaArrondiInchange_12,34") << 123400LL << 123400LL;
    QTest::newRow("dejaArrondiInchange_-12,34") << -123400LL << -123400LL;
    QTest::newRow("zeroInchange") << 0LL << 0LL;
    QTest::newRow("milleMilliardsEtMoitie") << MilleMilliards + 1250 << MilleMilliards + 1200;
    QTest::newRow("moinsMilleMilliardsEtMoitie")
        << -MilleMilliards - 1250 << -MilleMilliards - 1200;
    QTest::newRow("auDelaDeLaLimiteRamene_max")
        << std::numeric_limits<qint64>::max() << MontantLimiteUnites * Unite;
    QTest::newRow("auDelaDeLaLimiteRamene_min")
        << std::numeric_limits<qint64>::min() << -MontantLimiteUnites * Unite;
}

void TestMontant::arrondiMontant() {
    QFETCH(qint64, avant);
    QFETCH(qint64, apres);
    QCOMPARE(ArrondiMontant(M(avant)).dixMilliemes(), apres);
}

// Plancher puis centimes au pair revient à prendre le multiple de cent dix-millièmes le plus
// proche, une moitié allant au nombre pair de centimes : vérifié sur une large plage.
void TestMontant::arrondiMontant_auCentimeLePlusProcheMoitieAuPair() {
    QList<std::int64_t> valeurs;
    for (std::int64_t v = -30000; v <= 30000; ++v)
        valeurs << v;
    valeurs << MontantsDEssai();
    for (const std::int64_t v : valeurs) {
        const std::int64_t r = ArrondiMontant(M(v)).dixMilliemes();
        const std::int64_t ecart = r - v;
        if (r % 100 != 0 || ecart > 50 || ecart < -50 ||
            ((ecart == 50 || ecart == -50) && (r / 100) % 2 != 0))
            QFAIL(qPrintable(QStringLiteral("ArrondiMontant(%1) = %2").arg(v).arg(r)));
    }
}

void TestMontant::arrondiLoinDeZero_data() {
    QTest::addColumn<qint64>("avant");
    QTest::addColumn<int>("decimales");
    QTest::addColumn<qint64>("apres");
    QTest::newRow("moitieMonte_1,125_a2") << 11250LL << 2 << 11300LL;
    QTest::newRow("moitieDescendNegatif_-1,125_a2") << -11250LL << 2 << -11300LL;
    QTest::newRow("sousLaMoitie_1,1249_a2") << 11249LL << 2 << 11200LL;
    QTest::newRow("zeroDecimale_2,5_donne_3") << 25000LL << 0 << 30000LL;
    QTest::newRow("zeroDecimale_-2,5_donne_-3") << -25000LL << 0 << -30000LL;
    QTest::newRow("uneDecimale_1,25_donne_1,3") << 12500LL << 1 << 13000LL;
    QTest::newRow("troisDecimales_1,2345_donne_1,235") << 12345LL << 3 << 12350LL;
    QTest::newRow("quatreDecimalesInchange") << 12345LL << 4 << 12345LL;
    QTest::newRow("decimalesNegativesCommeZero") << 25000LL << -3 << 30000LL;
    QTest::newRow("negatifVersZeroSansSigne") << -49LL << 2 << 0LL;
}

void TestMontant::arrondiLoinDeZero() {
    QFETCH(qint64, avant);
    QFETCH(int, decimales);
    QFETCH(qint64, apres);
    QCOMPARE(ArrondiLoinDeZero(M(avant), decimales).dixMilliemes(), apres);
}

void TestMontant::depuisDouble_data() {
    QTest::addColumn<double>("valeur");
    QTest::addColumn<qint64>("attendu");
    const qint64 limite = MontantLimiteUnites * Unite;
    QTest::newRow("valeurExacte") << 12.5 << 125000LL;
    QTest::newRow("negatifExact") << -3.75 << -37500LL;
    QTest::newRow("auDixMillemePlusProche") << 1.23456 << 12346LL;
    QTest::newRow("negatifAuDixMillemePlusProche") << -1.23456 << -12346LL;
    QTest::newRow("nanDonneZero") << std::numeric_limits<double>::quiet_NaN() << 0LL;
    QTest::newRow("infiniRameneALaLimite") << std::numeric_limits<double>::infinity() << limite;
    QTest::newRow("moinsInfiniRameneALaLimite")
        << -std::numeric_limits<double>::infinity() << -limite;
    QTest::newRow("tresGrandRameneALaLimite") << 1e300 << limite;
}

void TestMontant::depuisDouble() {
    QFETCH(double, valeur);
    QFETCH(qint64, attendu);
    QCOMPARE(Montant::depuisDouble(valeur).dixMilliemes(), attendu);
}

void TestMontant::montantDepuisTexte_data() {
    QTest::addColumn<QString>("texte");
    QTest::addColumn<qint64>("attendu");
    const qint64 limite = MontantLimiteUnites * Unite;
    QTest::newRow("texteVideDonneZero") << "" << 0LL;
    QTest::newRow("virguleDecimale_12,5") << "12,5" << 125000LL;
    QTest::newRow("pointDecimal_12.5") << "12.5" << 125000LL;
    QTest::newRow("virguleEnTete_,5") << ",5" << 5000LL;
    QTest::newRow("pointFinal_5.") << "5." << 50000LL;
    QTest::newRow("blancsEntreLesMilliers") << "1 234 567,89" << 12345678900LL;
    QTest::newRow("espaceInsecableEntreLesMilliers") << "1\u00A0234,5" << 12345000LL;
    QTest::newRow("espaceFineInsecableEntreLesMilliers") << "1\u202F234,5" << 12345000LL;
    QTest::newRow("tabulationEtFinDeLigneSautees") << "\t12,5\r\n" << 125000LL;
    QTest::newRow("symboleESansChiffresPasUnExposant") << "12,50 E" << 125000LL;
    QTest::newRow("symboleEColle") << "12,50E" << 125000LL;
    QTest::newRow("ESigneSansChiffres") << "12E+" << 120000LL;
    QTest::newRow("symboleEuro") << "1 234,50 €" << 12345000LL;
    QTest::newRow("symboleFranc") << "1 234,50 F" << 12345000LL;
    QTest::newRow("exposantLu") << "1,5E3" << 15000000LL;
    QTest::newRow("exposantMinuscule") << "2e2" << 2000000LL;
    QTest::newRow("exposantNegatifPuisArrondi") << "25E-3" << 300LL;
    QTest::newRow("exposantAvecBlancs") << "12 E 2" << 12000000LL;
    QTest::newRow("secondExposantArrete") << "1E2E3" << 1000000LL;
    QTest::newRow("negatifAvecSymbole") << "-1 234,56 E" << -12345600LL;
    QTest::newRow("signeSepareParUnBlanc") << "- 5" << -50000LL;
    QTest::newRow("signePlus") << "+5" << 50000LL;
    QTest::newRow("moitieLoinDeZero_0,005") << "0,005" << 100LL;
    QTest::newRow("moitieLoinDeZero_-0,005") << "-0,005" << -100LL;
    QTest::newRow("sousLaMoitie_0,0049") << "0,0049" << 0LL;
    QTest::newRow("texteDecimalEtNonDouble_1,005") << "1,005" << 10100LL;
    QTest::newRow("texteDecimalEtNonDouble_2,675") << "2,675" << 26800LL;
    QTest::newRow("texteDecimalEtNonDouble_-2,675") << "-2,675" << -26800LL;
    QTest::newRow("arrondiPasseAUniteSuivante_9,995") << "9,995" << 100000LL;
    QTest::newRow("arretAuPremierCaractereNonNumerique") << "12abc" << 120000LL;
    QTest::newRow("secondeVirguleArrete") << "1,234,56" << 12300LL;
    QTest::newRow("secondPointArrete") << "1.2.3" << 12000LL;
    QTest::newRow("signeAuMilieuArrete") << "12-3" << 120000LL;
    QTest::newRow("sansChiffreDonneZero_lettres") << "abc" << 0LL;
    QTest::newRow("sansChiffreDonneZero_signeSeul") << "-" << 0LL;
    QTest::newRow("sansChiffreDonneZero_virguleSeule") << "," << 0LL;
    QTest::newRow("sansChiffreDonneZero_exposantSeul") << "E5" << 0LL;
    QTest::newRow("sansChiffreDonneZero_symboleDevant") << "€12" << 0LL;
    QTest::newRow("doubleSigneDonneZero") << "--5" << 0LL;
    QTest::newRow("chiffresNonAsciiNonLus") << "\u0661\u0662" << 0LL;
    QTest::newRow("zerosDeTete") << "000012,50" << 125000LL;
    QTest::newRow("zeroAvecDecimales") << "0,000" << 0LL;
    QTest::newRow("longuesDecimalesArrondies") << "0,1250000000000000000000000001" << 1300LL;
    QTest::newRow("longuesDecimalesSousLaMoitie") << "0,1249999999999999999999999999" << 1200LL;
    QTest::newRow("beaucoupDeZerosApresLaVirgule") << "0,0000000000000000000000000009" << 0LL;
    QTest::newRow("milleMilliardsFormate") << "1 000 000 000 000,00 E" << MilleMilliards;
    QTest::newRow("limiteAcceptee") << "900 000 000 000 000" << limite;
    QTest::newRow("limiteNegativeAcceptee") << "-900000000000000" << -limite;
    QTest::newRow("auDelaDeLaLimiteDonneZero") << "900 000 000 000 000,01" << 0LL;
    QTest::newRow("exposantAuDelaDeLaLimiteDonneZero") << "1E15" << 0LL;
    QTest::newRow("depassementDesDoublesDonneZero") << "1E400" << 0LL;
    QTest::newRow("tropDeChiffresDonneZero") << "99999999999999999999999" << 0LL;
    QTest::newRow("exposantGeantDonneZero") << "1E99999999999999999999" << 0LL;
    QTest::newRow("exposantNegatifGeantDonneZero") << "1E-99999999999999999999" << 0LL;
}

void TestMontant::montantDepuisTexte() {
    QFETCH(QString, texte);
    QFETCH(qint64, attendu);
    QCOMPARE(MontantDepuisTexte(texte).dixMilliemes(), attendu);
}

void TestMontant::formatFixe_data() {
    QTest::addColumn<qint64>("montant");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("zero") << 0LL << "0,00";
    QTest::newRow("moinsDeMille") << 1234500LL << "123,45";
    QTest::newRow("milleSepareParUneEspace") << 10000000LL << "1 000,00";
    QTest::newRow("centMille") << 1000000000LL << "100 000,00";
    QTest::newRow("milliersSepares") << 12345678900LL << "1 234 567,89";
    QTest::newRow("negatifMoitie") << -5000LL << "-0,50";
    QTest::newRow("negatifMilliers") << -12345678900LL << "-1 234 567,89";
    QTest::newRow("moitieLoinDeZeroPasAuPair_1,2250") << 12250LL << "1,23";
    QTest::newRow("moitieLoinDeZeroNegatif_-1,2250") << -12250LL << "-1,23";
    QTest::newRow("moitieLoinDeZero_0,005") << 50LL << "0,01";
    QTest::newRow("quatreDecimalesSousLaMoitie_1,2349") << 12349LL << "1,23";
    QTest::newRow("negatifArrondiAZeroSansSigne") << -49LL << "0,00";
    QTest::newRow("plusGrandMontantUsuel") << MilleMilliards << "1 000 000 000 000,00";
    QTest::newRow("plusPetitMontantUsuel") << -MilleMilliards << "-1 000 000 000 000,00";
    QTest::newRow("extremeMaximum")
        << std::numeric_limits<qint64>::max() << "922 337 203 685 477,58";
    QTest::newRow("extremeMinimum")
        << std::numeric_limits<qint64>::min() << "-922 337 203 685 477,58";
}

void TestMontant::formatFixe() {
    QFETCH(qint64, montant);
    QFETCH(QString, attendu);
    QCOMPARE(FormatFixe(M(montant)), attendu);
}

void TestMontant::formatFixe_seRelitArrondiLoinDeZero() {
    for (const std::int64_t v : MontantsDEssai()) {
        const QString texte = FormatFixe(M(v));
        const std::int64_t relu = MontantDepuisTexte(texte).dixMilliemes();
        if (relu != ArrondiSurLeTexte(v, 2))
            QFAIL(qPrintable(QStringLiteral("%1 -> \"%2\" -> %3").arg(v).arg(texte).arg(relu)));
    }
}

void TestMontant::formaterMontant_data() {
    QTest::addColumn<qint64>("montant");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("attendu");
    const QString deux = QStringLiteral("### ### ### ##0.00 E");
    const QString aucune = QStringLiteral("### ### ### ##0 E");
    QTest::newRow("deuxDecimalesEuro") << 12345000LL << deux << "1 234,50 E";
    QTest::newRow("zeroDeuxDecimales") << 0LL << deux << "0,00 E";
    QTest::newRow("zeroSansDecimale") << 0LL << aucune << "0 E";
    QTest::newRow("negatifSigneDevant") << -12345000LL << deux << "-1 234,50 E";
    QTest::newRow("negatifArrondiAZeroSansSigne") << -49LL << deux << "0,00 E";
    QTest::newRow("moitieLoinDeZero_1,2250") << 12250LL << deux << "1,23 E";
    QTest::newRow("sansDecimaleMoitieMonte_2,5") << 25000LL << aucune << "3 E";
    QTest::newRow("sansDecimaleMoitieNegative_-2,5") << -25000LL << aucune << "-3 E";
    QTest::newRow("sansDecimaleSousLaMoitie_2,4999") << 24999LL << aucune << "2 E";
    QTest::newRow("sansDecimaleMilliers") << 12345678900LL << aucune << "1 234 568 E";
    QTest::newRow("uneDecimale_1,25") << 12500LL << "### ### ### ##0.0 E"
                                      << "1,3 E";
    QTest::newRow("troisDecimales_1,2345") << 12345LL << "### ### ### ##0.000 E"
                                           << "1,235 E";
    QTest::newRow("quatreDecimales") << 12345LL << "### ### ### ##0.0000 E"
                                     << "1,2345 E";
    QTest::newRow("plusDeDecimalesQueLeMontant") << 12345LL << "### ### ### ##0.000000 E"
                                                 << "1,234500 E";
    QTest::newRow("symboleVideGardeLEspace") << 12345000LL << "### ### ### ##0.00 "
                                             << "1 234,50 ";
    QTest::newRow("symboleEuro") << 12345000LL << "### ### ### ##0.00 €"
                                 << "1 234,50 €";
    QTest::newRow("symboleFranc") << 12345000LL << "### ### ### ##0.00 F"
                                  << "1 234,50 F";
    QTest::newRow("symboleDePlusieursCaracteres") << 12345000LL << "### ### ### ##0.00 EUR"
                                                  << "1 234,50 EUR";
    QTest::newRow("symboleSansDecimale") << 12345000LL << "### ### ### ##0 F"
                                         << "1 235 F";
    QTest::newRow("treizeChiffres") << MilleMilliards << deux << "1 000 000 000 000,00 E";
    QTest::newRow("treizeChiffresNegatif") << -MilleMilliards << deux << "-1 000 000 000 000,00 E";
    QTest::newRow("douzeChiffres") << 999'999'999'999'9999LL << deux << "1 000 000 000 000,00 E";
    QTest::newRow("imageVideSansDecimale") << 12345000LL << ""
                                           << "1 235";
}

void TestMontant::formaterMontant() {
    QFETCH(qint64, montant);
    QFETCH(QString, image);
    QFETCH(QString, attendu);
    QCOMPARE(FormaterMontant(M(montant), image), attendu);
}

void TestMontant::construireDecimales_data() {
    QTest::addColumn<int>("nombre");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("zeroDonneZeroSeul") << 0 << "0";
    QTest::newRow("negatifCommeZero") << -1 << "0";
    QTest::newRow("treNegatifCommeZero") << std::numeric_limits<int>::min() << "0";
    QTest::newRow("uneDecimale") << 1 << "0.0";
    QTest::newRow("deuxDecimales") << 2 << "0.00";
    QTest::newRow("quatreDecimales") << 4 << "0.0000";
    QTest::newRow("dixDecimales") << 10 << "0.0000000000";
    QTest::newRow("auDelaBorneADix") << 11 << "0.0000000000";
    QTest::newRow("immenseBorneADix") << std::numeric_limits<int>::max() << "0.0000000000";
}

void TestMontant::construireDecimales() {
    QFETCH(int, nombre);
    QFETCH(QString, attendu);
    QCOMPARE(ConstruireDecimales(nombre), attendu);
}

void TestMontant::construireFormatMontant_data() {
    QTest::addColumn<QString>("decimales");
    QTest::addColumn<QString>("symbole");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("deuxDecimalesEuro") << "0.00"
                                       << "E"
                                       << "### ### ### ##0.00 E";
    QTest::newRow("sansDecimaleFranc") << "0"
                                       << "F"
                                       << "### ### ### ##0 F";
    QTest::newRow("symboleVide") << "0.00"
                                 << ""
                                 << "### ### ### ##0.00 ";
    QTest::newRow("symboleEuroTroisDecimales") << "0.000"
                                               << "€"
                                               << "### ### ### ##0.000 €";
}

void TestMontant::construireFormatMontant() {
    QFETCH(QString, decimales);
    QFETCH(QString, symbole);
    QFETCH(QString, attendu);
    QCOMPARE(ConstruireFormatMontant(decimales, symbole), attendu);
}

// Le texte affiché montre le montant arrondi loin de zéro à n décimales ; la relecture
// arrondit ce montant affiché à deux décimales (loin de zéro, sur le texte). Avec moins de
// deux décimales, on relit donc exactement le montant affiché ; avec plus, l'arrondi à deux
// décimales du montant affiché, qui peut différer de l'arrondi direct (0,0049 affiché
// 0,005 se relit 0,01).
void TestMontant::formatMontant_seRelitCommeLeMontantAffiche() {
    const QList<std::int64_t> montants = MontantsDEssai();
    int verifies = 0;
    for (int n = 0; n <= 4; ++n) {
        for (const QString& symbole :
             {QStringLiteral("E"), QStringLiteral("€"), QStringLiteral("F"), QString()}) {
            const QString image = ConstruireFormatMontant(ConstruireDecimales(n), symbole);
            for (const std::int64_t v : montants) {
                const QString texte = FormaterMontant(M(v), image);
                const std::int64_t affiche = ArrondiSurLeTexte(v, n);
                const std::int64_t attendu = n >= 2 ? ArrondiSurLeTexte(affiche, 2) : affiche;
                const std::int64_t relu = MontantDepuisTexte(texte).dixMilliemes();
                if (relu != attendu)
                    QFAIL(qPrintable(QStringLiteral("n=%1 %2 -> \"%3\" -> %4 au lieu de %5")
                                         .arg(n)
                                         .arg(v)
                                         .arg(texte)
                                         .arg(relu)
                                         .arg(attendu)));
                ++verifies;
            }
        }
    }
    // L'exemple qui montre la double étape.
    const QString troisDecimales = ConstruireFormatMontant(ConstruireDecimales(3), "E");
    QCOMPARE(FormaterMontant(M(49), troisDecimales), QStringLiteral("0,005 E"));
    QCOMPARE(MontantDepuisTexte(FormaterMontant(M(49), troisDecimales)).dixMilliemes(), 100);
    QVERIFY(verifies > 100000);
}

QTEST_GUILESS_MAIN(TestMontant)
#include "test_montant.moc"
