// history.xml : format XML des recordsets ADO, cinq champs, lu quel que soit l'ordre des
// lignes, valeurs nulles, fichier mal formé signalé sans être touché.
#include "BancSauvegarde.h"
#include "backup/ErreurSauvegarde.h"
#include "backup/Historique.h"
#include "ui/Application.h"

#include <QXmlStreamReader>
#include <QtTest>

using namespace banc;

namespace {

// Un fichier tel que l'ancien programme l'écrivait : apostrophes, lignes ajoutées gardées
// sous rs:insert, une ligne effacée, les anciennes valeurs d'une ligne modifiée.
const char* FichierAdo = R"(<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'
	xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'
	xmlns:rs='urn:schemas-microsoft-com:rowset'
	xmlns:z='#RowsetSchema'>
<s:Schema id='RowsetSchema'>
	<s:ElementType name='row' content='eltOnly' rs:updatable='true'>
		<s:AttributeType name='HistoID' rs:number='1' rs:write='true'>
			<s:datatype dt:type='i8' dt:maxLength='8' rs:precision='19' rs:fixedlength='true' rs:maybenull='false'/>
		</s:AttributeType>
		<s:AttributeType name='Date' rs:number='2' rs:nullable='true' rs:write='true'>
			<s:datatype dt:type='string' rs:dbtype='str' dt:maxLength='14' rs:precision='0'/>
		</s:AttributeType>
		<s:AttributeType name='NbEcritures' rs:number='3' rs:write='true'>
			<s:datatype dt:type='i8' dt:maxLength='8' rs:precision='19' rs:fixedlength='true' rs:maybenull='false'/>
		</s:AttributeType>
		<s:AttributeType name='c3' rs:name='FichierSauvegarde' rs:number='4' rs:nullable='true' rs:write='true'>
			<s:datatype dt:type='string' rs:dbtype='str' dt:maxLength='1024' rs:precision='0'/>
		</s:AttributeType>
		<s:AttributeType name='TailleFic' rs:number='5' rs:write='true'>
			<s:datatype dt:type='i8' dt:maxLength='8' rs:precision='19' rs:fixedlength='true' rs:maybenull='false'/>
		</s:AttributeType>
		<s:extends type='rs:rowbase'/>
	</s:ElementType>
</s:Schema>
<rs:data>
	<z:row HistoID='7' Date='20241231090500' NbEcritures='1200' c3='D:\sauvegardes\maroval31-12-2024-09h05.sav' TailleFic='2048'/>
	<rs:delete>
		<z:row HistoID='5' Date='20240101101010' NbEcritures='3' c3='a.sav' TailleFic='9'/>
	</rs:delete>
	<rs:update>
		<z:row HistoID='2' NbEcritures='10' TailleFic='100'/>
		<rs:original>
			<z:row HistoID='2' Date='20230505050505' NbEcritures='10' c3='vieux.sav' TailleFic='100'/>
		</rs:original>
	</rs:update>
	<rs:insert>
		<z:row TailleFic='33' c3='C:\b &amp; c.sav' NbEcritures='0' Date='20250102030405' HistoID='9'/>
	</rs:insert>
</rs:data>
</xml>
)";

} // namespace

class TestHistorique : public QObject {
    Q_OBJECT
private slots:
    void fichierVideACinqChampsEtAucuneLigne() {
        Banc banc;
        CreerHistoriqueVide(CheminHistorique());
        QCOMPARE(CheminHistorique(), banc.Fichier("history.xml"));
        QVERIFY(LireHistorique(CheminHistorique()).isEmpty());
        // Le schéma déclare les cinq champs, leurs types et leurs tailles.
        QXmlStreamReader r(Lire(CheminHistorique()));
        QStringList champs;
        while (!r.atEnd())
            if (r.readNext() == QXmlStreamReader::StartElement) {
                if (r.name() == QStringLiteral("AttributeType"))
                    champs << r.attributes().value("name").toString();
                if (r.name() == QStringLiteral("datatype"))
                    champs.last() +=
                        QLatin1Char(':') +
                        r.attributes()
                            .value("uuid:C2F41010-65B3-11d1-A29F-00AA00C14882", "type")
                            .toString() +
                        QLatin1Char(':') +
                        r.attributes()
                            .value("uuid:C2F41010-65B3-11d1-A29F-00AA00C14882", "maxLength")
                            .toString();
                QCOMPARE(r.name() == QStringLiteral("row") &&
                             r.namespaceUri() == QStringLiteral("#RowsetSchema"),
                         false);
            }
        QVERIFY(!r.hasError());
        QCOMPARE(champs, QStringList({"HistoID:i8:8", "Date:string:14", "NbEcritures:i8:8",
                                      "FichierSauvegarde:string:1024", "TailleFic:i8:8"}));
    }

    void ecritureEtRelectureDesLignesEtDesValeursNulles() {
        Banc banc;
        QList<LigneHistorique> lignes(3);
        lignes[0] = {3, QStringLiteral("20241231235959"), 1200,
                     QStringLiteral("/tmp/a <b> & 'c'.sav"), 9876543210LL};
        lignes[1] = {1, std::nullopt, 0, std::nullopt, 0};
        lignes[2] = {2, QString(""), 5, QStringLiteral("/média/clé/été.sav"), 12};
        EcrireHistorique(CheminHistorique(), lignes);
        const QList<LigneHistorique> lues = LireHistorique(CheminHistorique());
        QCOMPARE(lues.size(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(lues[i].HistoID, lignes[i].HistoID);
            QCOMPARE(lues[i].Date, lignes[i].Date);
            QCOMPARE(lues[i].NbEcritures, lignes[i].NbEcritures);
            QCOMPARE(lues[i].FichierSauvegarde, lignes[i].FichierSauvegarde);
            QCOMPARE(lues[i].TailleFic, lignes[i].TailleFic);
        }
        QVERIFY(!lues[1].Date.has_value());
        QVERIFY(lues[2].Date.has_value() && lues[2].Date->isEmpty());
    }

    void fichierAdoLuQuelQueSoitLOrdreDesLignesEtDesAttributs() {
        const QList<LigneHistorique> l = HistoriqueDepuisXml(FichierAdo);
        QCOMPARE(l.size(), 3);
        QCOMPARE(l[0].HistoID, 7);
        QCOMPARE(*l[0].FichierSauvegarde,
                 QStringLiteral("D:\\sauvegardes\\maroval31-12-2024-09h05.sav"));
        QCOMPARE(l[0].TailleFic, 2048);
        QCOMPARE(l[1].HistoID, 2);
        QVERIFY(!l[1].Date.has_value());
        QVERIFY(!l[1].FichierSauvegarde.has_value());
        QCOMPARE(l[2].HistoID, 9);
        QCOMPARE(*l[2].Date, QStringLiteral("20250102030405"));
        QCOMPARE(*l[2].FichierSauvegarde, QStringLiteral("C:\\b & c.sav"));
        QCOMPARE(l[2].TailleFic, 33);
    }

    void fichierMalFormeOuIncompletLeveUneErreurDeFormat_data() {
        QTest::addColumn<QByteArray>("contenu");
        QTest::newRow("vide") << QByteArray();
        QTest::newRow("balise non fermée") << QByteArray(FichierAdo).replace("</rs:data>", "");
        QTest::newRow("pas du XML") << QByteArray("HistoID;Date\n1;2024\n");
        QTest::newRow("autre racine") << QByteArray("<historique/>");
        QTest::newRow("champ obligatoire absent")
            << QByteArray(FichierAdo).replace("NbEcritures='1200' ", "");
        QTest::newRow("nombre invalide")
            << QByteArray(FichierAdo).replace("TailleFic='2048'", "TailleFic='deux'");
        QTest::newRow("champ non déclaré")
            << QByteArray(FichierAdo).replace("name='TailleFic'", "name='Taille'");
    }
    void fichierMalFormeOuIncompletLeveUneErreurDeFormat() {
        QFETCH(QByteArray, contenu);
        bool levee = false;
        try {
            HistoriqueDepuisXml(contenu);
        } catch (const ErreurSauvegarde& e) {
            levee = true;
            QCOMPARE(e.Numero(), ErreurFormatHistorique);
            QVERIFY(e.Description().startsWith(QStringLiteral("history.xml n'est pas")));
        }
        QVERIFY(levee);
    }

    void ecritureImpossibleLaisseLAncienFichier() {
        Banc banc;
        const QString bouchon = banc.Fichier("bouchon");
        Ecrire(bouchon, "x");
        QVERIFY_THROWS_EXCEPTION(ErreurSauvegarde,
                                 EcrireHistorique(bouchon + QStringLiteral("/history.xml"), {}));
        QVERIFY_THROWS_EXCEPTION(ErreurSauvegarde, LireHistorique(banc.Fichier("absent.xml")));
        QCOMPARE(Lire(bouchon), QByteArray("x"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestHistorique test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_historique.moc"
