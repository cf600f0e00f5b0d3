#include "fec/RepriseFec.h"

#include "base/Texte.h"
#include "chart/DonneesPlan.h"
#include "chart/GestionPlan.h"
#include "chart/Ouverture.h"
#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "posting/Securite.h"
#include "posting/TableTravail.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Exercices.h"
#include "store/Routines.h"

#include <QDate>
#include <QRegularExpression>
#include <QSet>
#include <SQLiteCpp/Transaction.h>
#include <map>
#include <optional>

namespace fec {

namespace {

const QString FormatAaaammjj = QStringLiteral("yyyyMMdd");

QDate Jour(const QString& aaaammjj) {
    return QDate::fromString(aaaammjj, FormatAaaammjj);
}

bool CompteDeBilan(const QString& compteNum) {
    const QChar c = compteNum.trimmed().isEmpty() ? QChar() : compteNum.trimmed().at(0);
    return c >= QLatin1Char('1') && c <= QLatin1Char('5');
}

QString Normaliser(const QString& numero) {
    QString n;
    for (const QChar c : numero)
        if (!c.isSpace()) n += c.toUpper();
    return n;
}

// Un compte de Maroval tiré du fichier : numéro, libellé, soldes du fichier.
struct CompteRepris {
    QString numero, libelle;
    int ligne = 0;       // première ligne du fichier qui le touche
    Montant solde;       // débits - crédits de toutes ses lignes
    Montant aNouveau;    // débits - crédits de ses à-nouveaux
    QString ligneANHors; // première ligne d'à-nouveau, pour un refus
};

// Le plan que le fichier demande : chaque couple (compte, compte auxiliaire) du fichier
// reçoit son numéro de Maroval. Les tiers vont sur un compte individuel : le numéro
// auxiliaire s'il est déjà un numéro de client ou de fournisseur, sinon précédé de 40 ou 41
// (401 ou 411 devant des chiffres), sinon un numéro fait ici quand il dépasserait huit
// caractères.
class PlanDuFichier {
public:
    PlanDuFichier(const FichierLu& f, const QHash<QString, QString>& journaux, QStringList& refus) {
        for (const EcritureLue& e : f.ecritures) {
            const bool an = journaux.value(e.journalCode) == QLatin1String("AN");
            for (const LigneLue& l : e.lignes) {
                const QString n = Numero(l, refus);
                if (n.isEmpty()) continue;
                CompteRepris& c = comptes[n];
                if (c.numero.isEmpty()) {
                    c.numero = n;
                    c.ligne = l.ligne;
                    ordre << n;
                }
                const bool tiers = LigneDeTiers(l);
                const QString libelle = (tiers ? l.compAuxLib : l.compteLib).trimmed();
                if (c.libelle.isEmpty()) c.libelle = libelle;
                // Le libellé d'un collectif vient aussi des lignes de ses tiers.
                const QString general = Normaliser(l.compteNum);
                if (tiers && (general == QLatin1String("400") || general == QLatin1String("410")))
                    libellesCollectifs.insert(general, l.compteLib.trimmed());
                c.solde += l.debit - l.credit;
                if (an) {
                    c.aNouveau += l.debit - l.credit;
                    if (c.ligneANHors.isEmpty()) c.ligneANHors = QString::number(l.ligne);
                }
            }
        }
        for (auto i = libellesCollectifs.cbegin(); i != libellesCollectifs.cend(); ++i) {
            if (!comptes.contains(i.key())) {
                comptes[i.key()] = {i.key(), i.value(), 0, {}, {}, {}};
                ordre << i.key();
            } else if (comptes[i.key()].libelle.isEmpty()) {
                comptes[i.key()].libelle = i.value();
            }
        }
        ordre.sort();
    }

    QString NumeroDe(const LigneLue& l) const { return numeros.value(Cle(l)); }

    QStringList ordre; // numéros de Maroval triés
    QHash<QString, CompteRepris> comptes;

private:
    static QString Cle(const LigneLue& l) {
        return Normaliser(l.compteNum) + QLatin1Char('\x1f') + Normaliser(l.compAuxNum);
    }

    // Un client ou un fournisseur : un compte auxiliaire sur un compte 40 ou 41.
    static bool LigneDeTiers(const LigneLue& l) {
        const QString general = Normaliser(l.compteNum);
        return !Normaliser(l.compAuxNum).isEmpty() &&
               (general.startsWith(QLatin1String("40")) || general.startsWith(QLatin1String("41")));
    }

    QString Numero(const LigneLue& l, QStringList& refus) {
        const QString cle = Cle(l);
        const auto deja = numeros.constFind(cle);
        if (deja != numeros.cend()) return *deja;
        const QString general = Normaliser(l.compteNum);
        QString n;
        if (LigneDeTiers(l)) {
            n = NumeroTiers(general.left(2), Normaliser(l.compAuxNum));
        } else {
            n = general;
            // Un numéro trop long perd d'abord ses zéros de fin (60110000000 : 60110000).
            while (n.size() > 8 && n.endsWith(QLatin1Char('0')))
                n.chop(1);
            if (n.size() > 8) {
                refus << QStringLiteral("Ligne %1 : le compte %2 a plus de huit caractères ; "
                                        "Maroval ne peut pas le reprendre.")
                             .arg(l.ligne)
                             .arg(l.compteNum.trimmed());
                n.clear();
            }
        }
        numeros.insert(cle, n);
        return n;
    }

    static bool EstTiers(const QString& numero) {
        const QString menu = LireFiltre(CleFiltre(numero)).Menu.trimmed();
        return menu == QLatin1String("160") || menu == QLatin1String("170");
    }

    QString NumeroTiers(const QString& prefixe, const QString& aux) {
        const auto pris = tiersPris.constFind(aux + prefixe);
        if (pris != tiersPris.cend()) return *pris;
        QString n;
        if (aux.startsWith(prefixe))
            n = aux;
        else if (aux.at(0).isLetter())
            n = prefixe + aux;
        else
            n = prefixe + QLatin1Char('1') + aux;
        if (n.size() > 8 || !EstTiers(n) || utilises.contains(n)) {
            // Un code auxiliaire trop long : un numéro de Maroval pris dans l'ordre du fichier.
            do {
                n = prefixe + QStringLiteral("X%1").arg(++serie, 5, 10, QLatin1Char('0'));
            } while (utilises.contains(n));
        }
        utilises.insert(n);
        tiersPris.insert(aux + prefixe, n);
        return n;
    }

    QHash<QString, QString> numeros;   // clé (compte, auxiliaire) → numéro de Maroval
    QHash<QString, QString> tiersPris; // auxiliaire + préfixe → numéro
    QSet<QString> utilises;            // numéros de tiers donnés
    QHash<QString, QString> libellesCollectifs;
    int serie = 0;
};

// Classe que les règles de numérotation donnent au numéro ; vide ou NN : hors du plan.
QString ClasseDuFiltre(const QString& numero) {
    return LireFiltre(CleFiltre(numero)).ERCPT.trimmed();
}

bool NumeroAdmis(const QString& n) {
    // 699 et 799 sont les comptes du résultat, que tout plan porte.
    return n == QLatin1String("699") || n == QLatin1String("799") ||
           NumeroDansLesPlages(ValeurTexte(n));
}

// La reprise en cours, notée avec la société qu'elle crée : un arrêt brutal au milieu la
// laisse à retirer au redémarrage.
void NoterReprise(int numSoc, int annee, std::int64_t compteur) {
    SQLite::Statement q(Base(), "INSERT OR REPLACE INTO RepriseEnCours (NumSoc, Annee, Compteur) "
                                "VALUES (?, ?, ?)");
    q.bind(1, numSoc);
    q.bind(2, annee);
    q.bind(3, compteur);
    q.exec();
}

void OublierReprise(int numSoc) {
    SQLite::Statement q(Base(), "DELETE FROM RepriseEnCours WHERE NumSoc = ?");
    q.bind(1, numSoc);
    q.exec();
}

// Retire la société reprise et tout ce qui lui a été écrit. La note de la reprise part en
// dernier : un arrêt pendant le retrait le laisse à refaire au redémarrage.
void Defaire(int numSoc, int annee, std::int64_t compteur) {
    try {
        ViderTableTravail();
        PurgerCleTemporaire();
        if (annee > 0) SupprimerExercice(numSoc, annee);
        if (numSoc > 0) RetirerSociete(numSoc);
        RemettreCompteurSocietes(compteur);
        OublierReprise(numSoc);
    } catch (const std::exception&) {
        // Le disque refuse aussi le retrait : rien de plus ne peut être fait ici.
    }
}

} // namespace

const QStringList& JournauxMaroval() {
    static const QStringList codes = {QStringLiteral("V"), QStringLiteral("A"),
                                      QStringLiteral("T"), QStringLiteral("D"),
                                      QStringLiteral("I"), QStringLiteral("AN")};
    return codes;
}

QString NomJournalMaroval(const QString& code) {
    static const QHash<QString, QString> noms = {
        {QStringLiteral("V"), QStringLiteral("Ventes")},
        {QStringLiteral("A"), QStringLiteral("Achats")},
        {QStringLiteral("T"), QStringLiteral("Trésorerie")},
        {QStringLiteral("D"), QStringLiteral("Opérations diverses")},
        {QStringLiteral("I"), QStringLiteral("Inventaire")},
        {QStringLiteral("AN"), QStringLiteral("A nouveaux (bilan d'ouverture)")}};
    return noms.value(code);
}

std::vector<JournalDuFichier> JournauxDuFichier(const FichierLu& f) {
    struct Genres {
        int ventes = 0, achats = 0, tresorerie = 0, autres = 0;
        bool ouverture = true; // toutes ses écritures au premier jour, sur des comptes de bilan
        bool ouvreLeFichier = false;
    };
    std::vector<JournalDuFichier> journaux;
    std::map<QString, Genres> genres;
    QHash<QString, int> rang;
    bool premiere = true;
    for (const EcritureLue& e : f.ecritures) {
        if (!rang.contains(e.journalCode)) {
            rang.insert(e.journalCode, static_cast<int>(journaux.size()));
            journaux.push_back({e.journalCode, e.lignes.front().journalLib.trimmed(), 0, {}});
        }
        ++journaux[rang.value(e.journalCode)].ecritures;
        Genres& c = genres[e.journalCode];
        bool sept = false, six = false, quaranteEtUn = false, quarante = false, cinq = false;
        for (const LigneLue& l : e.lignes) {
            const QString n = l.compteNum.trimmed();
            sept |= n.startsWith(QLatin1Char('7'));
            six |= n.startsWith(QLatin1Char('6'));
            quaranteEtUn |= n.startsWith(QLatin1String("41"));
            quarante |= n.startsWith(QLatin1String("40"));
            cinq |= n.startsWith(QLatin1Char('5'));
            if (l.ecritureDate != f.premierJour || !CompteDeBilan(n)) c.ouverture = false;
        }
        if (premiere) c.ouvreLeFichier = true;
        premiere = false;
        if (sept && quaranteEtUn)
            ++c.ventes;
        else if (six && quarante)
            ++c.achats;
        else if (cinq)
            ++c.tresorerie;
        else
            ++c.autres;
    }
    static const QSet<QString> codesOuverture = {QStringLiteral("AN"), QStringLiteral("RAN"),
                                                 QStringLiteral("ANO"), QStringLiteral("OUV")};
    for (JournalDuFichier& j : journaux) {
        const Genres& c = genres[j.code];
        const QString code = j.code.trimmed().toUpper();
        if (codesOuverture.contains(code) || (c.ouverture && c.ouvreLeFichier)) {
            j.propose = QStringLiteral("AN");
        } else if (JournauxMaroval().contains(code)) {
            j.propose = code;
        } else {
            // Le genre le plus fréquent de ses écritures ; à égalité, le premier de la liste.
            const std::pair<int, const char*> genres[] = {
                {c.ventes, "V"}, {c.achats, "A"}, {c.tresorerie, "T"}, {c.autres, "D"}};
            const auto* meilleur = &genres[0];
            for (const auto& g : genres)
                if (g.first > meilleur->first) meilleur = &g;
            j.propose = QString::fromLatin1(meilleur->second);
        }
    }
    return journaux;
}

void DatesProposees(const FichierLu& f, const QString& nomFichier, QString& debut, QString& fin) {
    QDate premier = Jour(f.premierJour);
    if (!premier.isValid()) premier = QDate(QDate::currentDate().year(), 1, 1);
    const QDate d(premier.year(), premier.month(), 1);
    QDate fFin = d.addMonths(12).addDays(-1);
    // SIREN + FEC + date de clôture : la date du nom est celle que l'autre logiciel a donnée.
    static const QRegularExpression nom(QStringLiteral("FEC(\\d{8})"),
                                        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = nom.match(nomFichier);
    const QDate dernier = Jour(f.dernierJour);
    if (m.hasMatch()) {
        const QDate cloture = Jour(m.captured(1));
        if (cloture.isValid() && cloture > d && (!dernier.isValid() || cloture >= dernier) &&
            cloture < d.addMonths(24))
            fFin = cloture;
    }
    if (dernier.isValid() && dernier > fFin)
        fFin = QDate(dernier.year(), dernier.month(), dernier.daysInMonth());
    debut = d.toString(FormatAaaammjj);
    fin = fFin.toString(FormatAaaammjj);
}

namespace {

// Les contrôles de la reprise, sur le plan déjà tiré du fichier (refusDuPlan : ce que ce
// tirage a refusé).
QStringList Controler(const FichierLu& f, const Parametres& p, const PlanDuFichier& plan,
                      const QStringList& refusDuPlan) {
    QStringList refus;
    if (p.nom.trimmed().isEmpty()) refus << QStringLiteral("Vous devez entrer un nom.");
    const QDate debut = Jour(p.debut), fin = Jour(p.fin);
    if (!debut.isValid() || !fin.isValid()) {
        refus << QStringLiteral("Les dates de l'exercice ne sont pas des dates valides.");
    } else if (fin < debut) {
        refus << QStringLiteral("L'exercice finit avant de commencer.");
    } else if (fin >= debut.addMonths(24)) {
        refus << QStringLiteral("Un exercice ne peut pas dépasser vingt-quatre mois.");
    } else {
        for (const EcritureLue& e : f.ecritures) {
            const QDate jour = Jour(e.date);
            if (jour >= debut && jour <= fin) continue;
            refus << QStringLiteral("Ligne %1 : l'écriture du %2 tombe hors de l'exercice du %3 "
                                    "au %4.")
                         .arg(e.lignes.front().ligne)
                         .arg(DateVersEcran(e.date), DateVersEcran(p.debut), DateVersEcran(p.fin));
            break;
        }
    }
    for (const EcritureLue& e : f.ecritures) {
        const QString j = p.journaux.value(e.journalCode);
        if (!JournauxMaroval().contains(j)) {
            refus << QStringLiteral("Le journal %1 du fichier n'a pas de journal de Maroval.")
                         .arg(e.journalCode);
            break;
        }
    }
    refus += refusDuPlan;
    for (const QString& n : plan.ordre) {
        const CompteRepris& c = plan.comptes[n];
        const QString classe = ClasseDuFiltre(n);
        if (!NumeroAdmis(n) || classe.isEmpty() || classe == QLatin1String("NN")) {
            refus << QStringLiteral("Ligne %1 : le compte %2 n'a pas de place dans le plan "
                                    "comptable de Maroval (comptes de 100 à 799).")
                         .arg(c.ligne)
                         .arg(n);
            continue;
        }
        if (!c.ligneANHors.isEmpty() && classe != QLatin1String("E1") &&
            classe != QLatin1String("R1") && classe != QLatin1String("WW"))
            refus << QStringLiteral("Ligne %1 : les à-nouveaux portent sur le compte %2, qui "
                                    "n'est pas un compte de bilan.")
                         .arg(c.ligneANHors, n);
    }
    return refus;
}

} // namespace

QStringList ControlerReprise(const FichierLu& f, const Parametres& p) {
    QStringList refusDuPlan;
    const PlanDuFichier plan(f, p.journaux, refusDuPlan);
    return Controler(f, p, plan, refusDuPlan);
}

Resultat ReprendreFec(const FichierLu& f, const Parametres& p,
                      const std::function<bool(int, int)>& avancement) {
    Resultat r;
    if (!f.refus.isEmpty()) {
        r.erreur = f.refus.join(QLatin1Char('\n'));
        return r;
    }
    QStringList refusDuPlan;
    const PlanDuFichier plan(f, p.journaux, refusDuPlan);
    const QStringList refus = Controler(f, p, plan, refusDuPlan);
    if (!refus.isEmpty()) {
        r.erreur = refus.join(QLatin1Char('\n'));
        return r;
    }
    const Session avant = session();
    Session& s = session();
    std::int64_t compteur = 0;
    try {
        compteur = CompteurSocietes();
        table::Societe societe;
        societe.Nom = p.nom.trimmed().left(30);
        const int annee = p.debut.left(4).toInt();
        {
            // La société, son exercice et la note de la reprise, ensemble ou pas du tout.
            SQLite::Transaction t(Base());
            const int numSoc = AjouterSociete(societe);
            NoterReprise(numSoc, annee, compteur);
            table::Constante c;
            c.CleCon = CleExercice(numSoc, annee);
            c.DateSaisie = p.debut;
            c.DateDebut = p.debut;
            c.DateFin = p.fin;
            c.SymboleMon = QStringLiteral("€");
            AjouterConstante(c);
            t.commit();
            r.numSoc = numSoc;
            r.annee = annee;
        }
        const QString cle = CleExercice(r.numSoc, r.annee);
        std::optional<PassagesEnLot> lot(std::in_place);
        s.NumSocCourante = static_cast<std::int16_t>(r.numSoc);
        s.ExerciceCourant = static_cast<std::int16_t>(r.annee);
        s.NomSocCourante = societe.Nom;
        s.MoisDebutExercice = CalculMoisDebutExercice(p.debut);
        s.MonnaieExercice = QStringLiteral("€");

        // Le plan, d'une seule validation ; un compte à double côté prend celui de son solde.
        QHash<QString, table::Compte> comptes;
        {
            SQLite::Transaction t(Base());
            for (const QString& n : plan.ordre) {
                const CompteRepris& c = plan.comptes[n];
                const QString libelle =
                    c.libelle.isEmpty() ? QStringLiteral("Compte ") + n : c.libelle;
                const Montant sens = c.aNouveau.estNul() ? c.solde : c.aNouveau;
                plan::CreerCompteTape(cle, n, libelle, ClasseDuFiltre(n),
                                      sens < Montant() ? plan::Cote::Passif : plan::Cote::Actif);
            }
            AssurerComptesFixes(cle);
            t.commit();
        }
        for (const QString& n : plan.ordre) {
            table::Compte c;
            if (LireCompte(cle, n, c)) comptes.insert(n, c);
        }
        r.comptes = static_cast<int>(comptes.size());

        // Le bilan d'ouverture : les collectifs d'abord (leur part propre), puis chaque
        // compte, dont les tiers qui ajoutent leur solde à leur collectif. Puis clos.
        Montant actif, passif;
        const auto ouvrir = [&](const QString& n) {
            const CompteRepris& c = plan.comptes[n];
            if (c.aNouveau.estNul()) return;
            const table::Compte& k = comptes[n];
            const bool r1 = k.ErCpt.trimmed().startsWith(QLatin1Char('R'));
            const Montant naturel = r1 ? -c.aNouveau : c.aNouveau;
            QString collectif;
            if (k.Menu == 170) collectif = QStringLiteral("410");
            if (k.Menu == 160) collectif = QStringLiteral("400");
            EnregistrerMontantOuverture(n, Montant(), naturel, collectif);
            (r1 ? passif : actif) += naturel;
        };
        for (const QString& n : plan.ordre)
            if (comptes[n].Menu == 165 || comptes[n].Menu == 155) ouvrir(n);
        for (const QString& n : plan.ordre)
            if (comptes[n].Menu != 165 && comptes[n].Menu != 155) ouvrir(n);
        MajTotauxOuverture(actif, passif);
        {
            table::Constante k;
            LireConstante(cle, k);
            k.OuvertureClos = true;
            MajConstante(cle, k);
        }

        // Les écritures, dans l'ordre du fichier, chacune passée comme une saisie.
        int total = 0;
        for (const EcritureLue& e : f.ecritures)
            if (p.journaux.value(e.journalCode) != QLatin1String("AN")) ++total;
        double dernier = 0;
        int faites = 0;
        for (const EcritureLue& e : f.ecritures) {
            const QString journal = p.journaux.value(e.journalCode);
            if (journal == QLatin1String("AN")) continue;
            int lignes = 0;
            {
                SQLite::Transaction t(Base());
                ViderTableTravail();
                for (const LigneLue& l : e.lignes) {
                    const Montant m = l.debit - l.credit;
                    if (m.estNul()) continue;
                    const QString n = plan.NumeroDe(l);
                    const table::Compte& c = comptes[n];
                    table::Saisie w = LigneSurCompte(c, journal);
                    w.wDateEcr = e.date;
                    w.wDatePiece = l.pieceDate.isEmpty() ? e.date : l.pieceDate;
                    w.wLibEcr = TexteRange(l.ecritureLib.trimmed(), 40);
                    const bool debit = m > Montant();
                    // Le montant est positif quand le compte grandit de son côté naturel.
                    const bool naturel = c.ErCpt.trimmed().startsWith(QLatin1Char('E'));
                    w.wMntEcr = debit == naturel ? m.abs() : -m.abs();
                    w.wDCEcr = debit ? QStringLiteral("D") : QStringLiteral("C");
                    w.wMenuLigne = journal + QStringLiteral("01");
                    AjouterSaisie(w);
                    ++lignes;
                }
                t.commit();
            }
            if (lignes > 0) {
                s.DateSaisieCourante = DateVersEcran(e.date);
                PasserEcriture(QString::number(dernier + 1, 'f', 0), s.MonnaieExercice);
                dernier += lignes;
                r.lignes += lignes;
                ++r.ecritures;
            }
            ++faites;
            if (avancement && !avancement(faites, total)) {
                r.annulee = true;
                break;
            }
        }
        ViderTableTravail();
        // Fin du lot : la base synchronise tout ce qui a été écrit.
        lot.reset();
        if (!r.annulee && !Verification())
            r.erreur = QStringLiteral("Les livres repris ne s'accordent pas : la reprise est "
                                      "abandonnée (le détail est dans verif.txt).");
    } catch (const std::exception& e) {
        r.erreur = QStringLiteral("La reprise a échoué : %1\nRien n'a été gardé.")
                       .arg(QString::fromLocal8Bit(e.what()));
    }
    if (r.annulee || !r.erreur.isEmpty()) {
        Defaire(r.numSoc, r.annee, compteur);
        r.numSoc = 0;
        r.annee = 0;
    } else {
        try {
            OublierReprise(r.numSoc);
        } catch (const std::exception&) {
            // Restée notée, la société serait retirée au redémarrage : le dire.
            r.erreur = QStringLiteral("La reprise n'a pas pu être terminée sur le disque.");
        }
    }
    session() = avant;
    return r;
}

QStringList RetirerReprisesInterrompues() {
    struct Interrompue {
        int numSoc = 0, annee = 0;
        std::int64_t compteur = 0;
    };
    std::vector<Interrompue> liste;
    {
        SQLite::Statement q(Base(), "SELECT NumSoc, Annee, Compteur FROM RepriseEnCours");
        while (q.executeStep())
            liste.push_back(
                {q.getColumn(0).getInt(), q.getColumn(1).getInt(), q.getColumn(2).getInt64()});
    }
    QStringList noms;
    for (const Interrompue& i : liste) {
        table::Societe s;
        if (LireSociete(i.numSoc, s)) noms << s.Nom.trimmed();
        Defaire(i.numSoc, i.annee, i.compteur);
    }
    return noms;
}

} // namespace fec
