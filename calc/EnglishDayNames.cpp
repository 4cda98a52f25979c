#include "calc/EnglishDayNames.h"

#include "calc/SkyDay.h"

namespace dayvane {
namespace {
struct EnglishName
{
    std::string_view japanese;
    const char* english;
};

constexpr EnglishName kEnglishNames[] = {
    // holidays
    {u8"元日", "New Year's Day"},
    {u8"元旦", "New Year's Day"},
    {u8"成人の日", "Coming of Age Day"},
    {u8"建国記念の日", "National Foundation Day"},
    {u8"天皇誕生日", "The Emperor's Birthday"},
    {u8"春分の日", "Vernal Equinox Day"},
    {u8"みどりの日", "Greenery Day"},
    {u8"昭和の日", "Showa Day"},
    {u8"憲法記念日", "Constitution Memorial Day"},
    {u8"こどもの日", "Children's Day"},
    {u8"海の日", "Marine Day"},
    {u8"山の日", "Mountain Day"},
    {u8"敬老の日", "Respect for the Aged Day"},
    {u8"秋分の日", "Autumnal Equinox Day"},
    {u8"体育の日", "Health and Sports Day"},
    {u8"スポーツの日", "Sports Day"},
    {u8"文化の日", "Culture Day"},
    {u8"勤労感謝の日", "Labor Thanksgiving Day"},
    {u8"結婚の儀", "Imperial Wedding"},
    {u8"大喪の礼", "State Funeral of the Emperor"},
    {u8"即位礼正殿の儀", "Enthronement Ceremony"},
    {u8"天皇の即位の日", "Day of the Emperor's Accession"},
    {u8"即位礼正殿の儀の行われる日", "Day of the Enthronement Ceremony"},
    {u8"振替休日", "Substitute Holiday"},
    {u8"国民の休日", "Citizens' Holiday"},
    {u8"国民の祝日", "National Holiday"},
    {u8"休日", "Holiday"},
    {u8"休日（祝日扱い）", "Holiday"},
    // observances
    {u8"節分", "Setsubun"},
    {u8"バレンタインデー", "Valentine's Day"},
    {u8"雛祭り", "Doll Festival"},
    {u8"ホワイトデー", "White Day"},
    {u8"エイプリルフール", "April Fools' Day"},
    {u8"七夕", "Star Festival"},
    {u8"クリスマス", "Christmas"},
    {u8"大晦日", "New Year's Eve"},
    {u8"ハロウィン", "Halloween"},
    {u8"万聖節", "All Saints' Day"},
    {u8"花祭り", "Buddha's Birthday"},
    {u8"終戦記念日", "End of War Memorial Day"},
    {u8"涅槃会", "Nirvana Day"},
    {u8"サン・ジョルディの日", "Saint George's Day"},
    {u8"聖パトリック・デー", "Saint Patrick's Day"},
    {u8"聖ヨハネ祭", "Saint John's Day"},
    {u8"聖ニコラス祭", "Saint Nicholas' Day"},
    {u8"独統一記念日", "German Unity Day"},
    {u8"仏革命記念日", "Bastille Day"},
    {u8"米独立記念日", "Independence Day (USA)"},
    {u8"広島平和記念日", "Hiroshima Peace Memorial Day"},
    {u8"長崎原爆の日", "Nagasaki Atomic Bomb Memorial Day"},
    {u8"キャンドルマス", "Candlemas"},
    {u8"ベルテン", "Beltane"},
    {u8"インボルク", "Imbolc"},
    {u8"ルナーサド", "Lughnasadh"},
    {u8"ワルプルギスの夜", "Walpurgis Night"},
    {u8"七五三", "Shichi-Go-San"},
    {u8"時の記念日", "Time Memorial Day"},
    {u8"七草", "Day of the Seven Herbs"},
    {u8"鏡開き", "Kagami Biraki"},
    {u8"太子会", "Prince Shotoku Memorial"},
    {u8"二月堂お水取り", "Omizutori of Nigatsudo"},
    {u8"針供養", "Needle Memorial"},
    {u8"針供養(関西)", "Needle Memorial (Kansai)"},
    {u8"更衣", "Change of Clothes"},
    {u8"祇園祭", "Gion Festival"},
    {u8"葵祭", "Aoi Festival"},
    {u8"入谷朝顔市", "Iriya Morning Glory Fair"},
    {u8"ほおずき市", "Ground Cherry Fair"},
    {u8"オレンジデー", "Orange Day"},
    {u8"大文字五山送り火", "Gozan Okuribi"},
    {u8"神嘗祭", "Kanname Festival"},
    {u8"時代祭", "Festival of the Ages"},
    {u8"鉄腕アトムの誕生日", "Astro Boy's Birthday"},
    {u8"母の日", "Mother's Day"},
    {u8"父の日", "Father's Day"},
    {u8"イースター", "Easter"},
    {u8"感謝祭", "Thanksgiving"},
};

constexpr int kDegrees = 360;
constexpr int kDegreesPerTerm = 15;
} // namespace

const char* EnglishDayName(std::string_view japanese)
{
    for (const EnglishName& name : kEnglishNames) {
        if (name.japanese == japanese) {
            return name.english;
        }
    }
    for (int longitude = 0; longitude < kDegrees; longitude += kDegreesPerTerm) {
        const SkyName term = SolarTermName(longitude);
        if (term.japanese == japanese) {
            return term.english;
        }
    }
    for (int day = 0; day < static_cast<int>(SeasonalDay::Count); ++day) {
        const SkyName name = SeasonalDayName(static_cast<SeasonalDay>(day));
        if (name.japanese == japanese) {
            return name.english;
        }
    }
    return nullptr;
}
} // namespace dayvane
