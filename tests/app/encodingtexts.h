#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// A text of about 120 characters in a language, and a remark of three foreign letters, with the
// encodings in which files of that language used to be written.
struct SEncodingText
{
    QString strLanguage;
    QStringList lstCodecs;
    QString strProse;
    QString strRemark;

    // A source file whose only foreign letters are in the remark.
    QString source() const
    {
        return QStringLiteral("#include <stdio.h>\n\n// ") + strRemark
            + QStringLiteral(
                   "\nint main(void)\n{\n    int count = 0;\n    while (getchar() != EOF)\n"
                   "        ++count;\n    printf(\"%d\\n\", count);\n    return 0;\n}\n");
    }
};

inline std::vector<SEncodingText> encodingTexts()
{
    const auto text = [](const char *szLanguage, const char *szCodecs, const char *szProse,
                         const char *szRemark) -> SEncodingText {
        return {QString::fromUtf8(szLanguage), QString::fromUtf8(szCodecs).split(' '),
                QString::fromUtf8(szProse), QString::fromUtf8(szRemark)};
    };
    return {
        text("German", "ISO-8859-1 windows-1252 IBM850",
             "Im Garten hinter der Mühle blühen die Rosen noch spät im Jahr, obwohl der Gärtner "
             "schon "
             "vor Wochen an die Küste gezogen ist.",
             "Zähler für Wörter"),
        text("French", "ISO-8859-1 windows-1252 IBM850",
             "Le boulanger se lève très tôt, prépare la pâte à la lumière d'une lampe et siffle un "
             "air "
             "que sa mère chantait déjà à Besançon.",
             "compteur: déjà lu, prêt"),
        text("Spanish", "ISO-8859-1 windows-1252",
             "El señor del quiosco leía el periódico bajo el sol de otoño y saludaba a cada niño "
             "que "
             "pasaba camino del colegio o del jardín.",
             "líneas, años, así"),
        text("Portuguese", "ISO-8859-1",
             "A estação ficava longe da praça, mas as crianças não se cansavam de ir lá ver os "
             "comboios que chegavam à noite das montanhas.",
             "posição já"),
        text("Italian", "ISO-8859-1",
             "La città era così silenziosa che si sentiva già il mare; più in là, oltre il porto, "
             "nessuno sapeva perché le barche fossero ferme.",
             "città, perché, più"),
        text("Swedish", "ISO-8859-1",
             "När våren äntligen kom åkte hela familjen till sjön för att måla båten, och morfar "
             "berättade om åren då isen låg kvar till maj.",
             "Räknar på nytt över"),
        text("Danish", "ISO-8859-1",
             "Da færgen nåede øen, stod købmanden på kajen og ventede på æblerne, som han havde "
             "bestilt hos en gård på den anden side af bæltet.",
             "Tæller også blå ord"),
        text(
            "Polish", "ISO-8859-2 windows-1250",
            "Sąsiadka przyniosła koszyk świeżych jabłek i długo opowiadała o podróży, którą odbyła "
            "w młodości przez góry aż nad ciepłe morze.",
            "źródło"),
        text("Czech", "ISO-8859-2 windows-1250",
             "Starý hodinář otevřel dílnu ještě před svítáním, protože příští týden měl odevzdat "
             "věžní "
             "hodiny, které opravoval už třetí měsíc.",
             "Počet řádek"),
        text("Slovak", "windows-1250",
             "Na konci dediny stál dom s červenou strechou, v ktorom bývala teta so štyrmi mačkami "
             "a "
             "každú nedeľu piekla koláče pre celú ulicu.",
             "dĺžka reťazca"),
        text("Hungarian", "ISO-8859-2 windows-1250",
             "A könyvtáros minden csütörtökön felolvasott a gyerekeknek, akik a szőnyegen ülve "
             "hallgatták, hogyan győzte le a szegény fiú az óriást.",
             "betűk száma, idő"),
        text("Romanian", "ISO-8859-2 windows-1250",
             "Bătrânul pescar îşi aştepta nepoţii în faţa casei, iar când aceştia veneau, le arăta "
             "cum se împleteşte o plasă şi cum se citeşte cerul.",
             "numărul de părţi"),
        text("Turkish", "ISO-8859-9 windows-1254",
             "Komşumuz her akşam balkonda çiçeklerini sular, sonra da radyoyu açıp eski şarkılar "
             "dinlerken gökyüzündeki kuşları uzun uzun seyreder.",
             "değişken adı"),
        text("Lithuanian", "windows-1257 ISO-8859-13",
             "Močiutė kiekvieną šeštadienį kepdavo duoną, o mes, vaikai, sėdėdavome šalia krosnies "
             "ir "
             "laukdavome, kol ji leis paragauti žievės.",
             "žodžių"),
        text(
            "Russian", "KOI8-R windows-1251 IBM866 ISO-8859-5",
            "Поезд опаздывал на два часа, и пассажиры собрались у окна буфета, где молодой человек "
            "в сером пальто играл на гитаре старые песни.",
            "код"),
        text(
            "Ukrainian", "KOI8-U windows-1251",
            "Узимку ми щодня ходили на ковзанку, а ввечері пили гарячий чай із вишневим варенням і "
            "слухали, як за вікном завиває холодний вітер.",
            "вік"),
        text("Bulgarian", "windows-1251",
             "Учителката отвори прозореца и в стаята влезе миризма на липа; децата замълчаха за "
             "миг и "
             "после продължиха да рисуват своите кораби.",
             "дом"),
        text("Greek", "ISO-8859-7 windows-1253",
             "Ο ταχυδρόμος ανέβαινε κάθε Δευτέρα τον στενό δρόμο προς το χωριό, κρατώντας μια "
             "μεγάλη "
             "τσάντα με γράμματα από όλες τις άκρες της γης.",
             "νέο"),
        text("Hebrew", "ISO-8859-8 windows-1255",
             "הספרן הזקן פתח את הדלת בשעה שמונה, הדליק את האור והניח על השולחן את הספרים שהוחזרו "
             "אתמול "
             "בערב על ידי תלמידי בית הספר.",
             "קוד"),
        text("Arabic", "ISO-8859-6 windows-1256",
             "وصل القطار إلى المحطة متأخرا، فنزل المسافرون مسرعين نحو السوق حيث كان الباعة ينادون "
             "على "
             "الخبز الساخن والفواكه القادمة من القرى.",
             "رقم"),
        text("Thai", "TIS-620",
             "ทุกวันอาทิตย์พ่อจะพาพวกเราไปเที่ยวทะเล แม่เตรียมอาหารใส่กล่องไว้ตั้งแต่เช้า "
             "ส่วนน้องชายคนเล็กชอบก่อปราสาททรายริมหาด",
             "รอบ"),
        text("Chinese (simplified)", "GB18030",
             "每年春天，村口的桃花一开，孩子们就跑到小桥上看船。船夫是个爱讲故事的人，他说河的尽头"
             "有一座很"
             "高的山，山上住着一位会下棋的老人。谁要是赢了他，就能得到一颗永远不会融化的雪球。我们"
             "都相信了很多年，"
             "直到长大以后才明白他只是想让我们安静地坐一会儿。",
             "计数器"),
        text("Chinese (traditional)", "Big5",
             "每年春天，村口的桃花一開，孩子們就跑到小橋上看船。船夫是個愛講故事的人，他說河的盡頭"
             "有一座很"
             "高的山，山上住著一位會下棋的老人。誰要是贏了他，就能得到一顆永遠不會融化的雪球。我們"
             "都相信了很多年，"
             "直到長大以後才明白他只是想讓我們安靜地坐一會兒。",
             "計數器"),
        text("Japanese", "Shift_JIS EUC-JP ISO-2022-JP",
             "駅前の本屋は夜おそくまで開いていて、仕事帰りの人たちが静かに棚をながめている。店主は"
             "猫を二匹"
             "飼っていて、レジの横の椅子でいつも丸くなって眠っている。雨の日には、その猫に会うため"
             "だけに立ち寄る"
             "客もいるそうだ。先週、私はそこで古い地図を一枚買った。",
             "文字数"),
        text("Korean", "EUC-KR windows-949",
             "겨울이 되면 할머니는 마당에 김장독을 묻고 온 동네 사람들을 불러 함께 배추를 절였다. "
             "아이들은 "
             "매운 양념을 조금씩 맛보며 웃었고, 저녁에는 따뜻한 방에 둘러앉아 고구마를 구워 먹으며 "
             "옛날이야기를 "
             "들었다. 그때의 냄새가 아직도 생각난다.",
             "문자열"),
    };
}
