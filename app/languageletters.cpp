#include "app/languageletters.h"

namespace {

SLanguageLetters language(const char *szLanguage, const char *szCodecs, const char16_t *szLetters,
                          int nFirstLead = 0, int nLastLead = 0)
{
    return {QString::fromLatin1(szLanguage), QString::fromLatin1(szCodecs).split(QLatin1Char(' ')),
            QString::fromUtf16(szLetters), nFirstLead, nLastLead};
}

constexpr char g_szWest[] = "windows-1252 ISO-8859-15 IBM850 macintosh";
constexpr char g_szCentral[] = "windows-1250 ISO-8859-2 IBM852";
constexpr char g_szBaltic[] = "windows-1257 ISO-8859-13";
constexpr char g_szCyrillic[] = "windows-1251 KOI8-R IBM866 ISO-8859-5 x-mac-cyrillic";
constexpr char16_t g_szJapanese[] = u"のにはをたがでてとしれさいあるなっもかこんりまらすくよえそだ"
                                    u"うわおきけせつどみめちろやじぶゃょュアイウエオカ"
                                    u"キクコサシスタッテトナニハフマムメラリルレロンー日一人年大国"
                                    u"本中出時行見月後前生上事者会名分数字文列値"
                                    u"設定変関長";

} // namespace

const std::vector<SLanguageLetters> &languageLetters()
{
    static const std::vector<SLanguageLetters> s_lst = {
        language("de", g_szWest, u"üäößé"),
        language("fr", g_szWest, u"éèàêçâôùîûœëïæÿ"),
        language("es", g_szWest, u"óíáéñúü"),
        language("pt", g_szWest, u"ãçáéíóêõâúàô"),
        language("it", g_szWest, u"àèùòéì"),
        language("sv", g_szWest, u"äåöé"),
        language("da", g_szWest, u"øåæéö"),
        language("is", g_szWest, u"íáðóéæöúþý"),
        language("fi", g_szWest, u"äöåé"),
        language("nl", g_szWest, u"ëéïöüè"),
        language("ca", g_szWest, u"óàéíèçòúïü"),
        language("sq", g_szWest, u"ëç"),
        language("ga", g_szWest, u"áéíóú"),
        language("pl", g_szCentral, u"łążęśóćńź"),
        language("cs", g_szCentral, u"íáéěýřžčšůúňťďóöü"),
        language("sk", g_szCentral, u"áíéčšžýúľťňôďäóĺŕ"),
        language("hu", g_szCentral, u"áéöóőüíúű"),
        language("ro", g_szCentral, u"ăîâşţ"),
        language("hr", g_szCentral, u"čšžćđ"),
        language("tr", "windows-1254 ISO-8859-9 IBM857", u"ışüğöçİâîû"),
        language("lt", g_szBaltic, u"ėšųžąūįčę"),
        language("lv", g_szBaltic, u"āīēšūņļžķčģ"),
        language("et", g_szBaltic, u"äõüöšž"),
        language("ru", g_szCyrillic, u"оеаинтсрвлкмдпуяыьгзбчйхжшюцщэфъё"),
        language("uk", "windows-1251 KOI8-U ISO-8859-5", u"оанивітерслкдумпзябьгчйхжцюєїшщфґ"),
        language("bg", g_szCyrillic, u"аоеитнрсвлдпкмзуъябгчйшщцжхюфь"),
        language("sr", "windows-1251 ISO-8859-5", u"аоиенрсткувјдмплзгбчшцжњхћфђљџ"),
        language("el", "windows-1253 ISO-8859-7 IBM869", u"αοιετσνηυρπκμλςωόίάήέύθγδώχφβξζψϊϋΐΰ"),
        language("he", "windows-1255 ISO-8859-8 IBM862", u"יוהלאתרבמםשנעדחקפצגטכןזסךףץ"),
        language("ar", "windows-1256 ISO-8859-6", u"اليمونرتبةعدسفهكقأحجشطصخىإذثءضزغئؤظآ"),
        language("th", "TIS-620", u"านรอก่เ้งมยลวดทสตัะปบิคีหแุจพชขใไ์ื็ูโผถซึณฉธศำษฐญ๋๊ฯๆ"),
        language("zh", "GB18030",
                 u"的一是不了在人有我他这个们中来上大为和国地到以说时要就出会可也你对生能而子那得于"
                 u"着下自之年"
                 u"过发后作里用道行所然家种事成方多经么去法学如都同现当没动面起看定天分还进好小部其"
                 u"些主样理心她本前"
                 u"开但因只从想实日文件名数据值字符串长度类型错误返回参设置",
                 0xB0, 0xD7),
        language("ja", "Shift_JIS", g_szJapanese, 0x88, 0x97),
        language("ja", "EUC-JP", g_szJapanese, 0xB0, 0xCF),
        language("ko", "windows-949",
                 u"이다는의가에을고하지로를한은서나사기도리자어인아시대그해정일수들부전제과여만있라"
                 u"원보으장주면상게구오"
                 u"스니것안비성소우공마신었했동조크름값문열파변함",
                 0xB0, 0xC8),
        language("zh_tw", "Big5",
                 u"的一是不了在人有我他這個們中來上大為和國地到以說時要就出會可也你對生能而子那得於"
                 u"著下自之年"
                 u"過發後作裡用道行所然家種事成方多經麼去法學如都同現當沒動面起看定天分還進好小部其"
                 u"些主樣理心她本前"
                 u"開但因只從想實日文件名數據值字串長度類型錯誤",
                 0xA4, 0xC6),
    };
    return s_lst;
}
