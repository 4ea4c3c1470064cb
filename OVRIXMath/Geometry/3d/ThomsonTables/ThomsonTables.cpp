// Made by tools/orientations from its tables.txt; see docs/guides/orientations.md.
#include <OVRIXMath/Geometry/3d/ThomsonTables/ThomsonTables.h>

namespace ovrix
{
namespace math
{

const ovReal64* solveThomsonProblem_001();
const ovReal64* solveThomsonProblem_002();
const ovReal64* solveThomsonProblem_003();
const ovReal64* solveThomsonProblem_004();
const ovReal64* solveThomsonProblem_005();
const ovReal64* solveThomsonProblem_006();
const ovReal64* solveThomsonProblem_007();
const ovReal64* solveThomsonProblem_008();
const ovReal64* solveThomsonProblem_009();
const ovReal64* solveThomsonProblem_010();
const ovReal64* solveThomsonProblem_011();
const ovReal64* solveThomsonProblem_012();
const ovReal64* solveThomsonProblem_013();
const ovReal64* solveThomsonProblem_014();
const ovReal64* solveThomsonProblem_015();
const ovReal64* solveThomsonProblem_016();
const ovReal64* solveThomsonProblem_017();
const ovReal64* solveThomsonProblem_018();
const ovReal64* solveThomsonProblem_019();
const ovReal64* solveThomsonProblem_020();
const ovReal64* solveThomsonProblem_021();
const ovReal64* solveThomsonProblem_022();
const ovReal64* solveThomsonProblem_023();
const ovReal64* solveThomsonProblem_024();
const ovReal64* solveThomsonProblem_025();
const ovReal64* solveThomsonProblem_026();
const ovReal64* solveThomsonProblem_027();
const ovReal64* solveThomsonProblem_028();
const ovReal64* solveThomsonProblem_029();
const ovReal64* solveThomsonProblem_030();
const ovReal64* solveThomsonProblem_031();
const ovReal64* solveThomsonProblem_032();
const ovReal64* solveThomsonProblem_033();
const ovReal64* solveThomsonProblem_034();
const ovReal64* solveThomsonProblem_035();
const ovReal64* solveThomsonProblem_036();
const ovReal64* solveThomsonProblem_037();
const ovReal64* solveThomsonProblem_038();
const ovReal64* solveThomsonProblem_039();
const ovReal64* solveThomsonProblem_040();
const ovReal64* solveThomsonProblem_041();
const ovReal64* solveThomsonProblem_042();
const ovReal64* solveThomsonProblem_043();
const ovReal64* solveThomsonProblem_044();
const ovReal64* solveThomsonProblem_045();
const ovReal64* solveThomsonProblem_046();
const ovReal64* solveThomsonProblem_047();
const ovReal64* solveThomsonProblem_048();
const ovReal64* solveThomsonProblem_049();
const ovReal64* solveThomsonProblem_050();
const ovReal64* solveThomsonProblem_051();
const ovReal64* solveThomsonProblem_052();
const ovReal64* solveThomsonProblem_053();
const ovReal64* solveThomsonProblem_054();
const ovReal64* solveThomsonProblem_055();
const ovReal64* solveThomsonProblem_056();
const ovReal64* solveThomsonProblem_057();
const ovReal64* solveThomsonProblem_058();
const ovReal64* solveThomsonProblem_059();
const ovReal64* solveThomsonProblem_060();
const ovReal64* solveThomsonProblem_061();
const ovReal64* solveThomsonProblem_062();
const ovReal64* solveThomsonProblem_063();
const ovReal64* solveThomsonProblem_064();
const ovReal64* solveThomsonProblem_065();
const ovReal64* solveThomsonProblem_066();
const ovReal64* solveThomsonProblem_067();
const ovReal64* solveThomsonProblem_068();
const ovReal64* solveThomsonProblem_069();
const ovReal64* solveThomsonProblem_070();
const ovReal64* solveThomsonProblem_071();
const ovReal64* solveThomsonProblem_072();
const ovReal64* solveThomsonProblem_073();
const ovReal64* solveThomsonProblem_074();
const ovReal64* solveThomsonProblem_075();
const ovReal64* solveThomsonProblem_076();
const ovReal64* solveThomsonProblem_077();
const ovReal64* solveThomsonProblem_078();
const ovReal64* solveThomsonProblem_079();
const ovReal64* solveThomsonProblem_080();
const ovReal64* solveThomsonProblem_081();
const ovReal64* solveThomsonProblem_082();
const ovReal64* solveThomsonProblem_083();
const ovReal64* solveThomsonProblem_084();
const ovReal64* solveThomsonProblem_085();
const ovReal64* solveThomsonProblem_086();
const ovReal64* solveThomsonProblem_087();
const ovReal64* solveThomsonProblem_088();
const ovReal64* solveThomsonProblem_089();
const ovReal64* solveThomsonProblem_090();
const ovReal64* solveThomsonProblem_091();
const ovReal64* solveThomsonProblem_092();
const ovReal64* solveThomsonProblem_093();
const ovReal64* solveThomsonProblem_094();
const ovReal64* solveThomsonProblem_095();
const ovReal64* solveThomsonProblem_096();
const ovReal64* solveThomsonProblem_097();
const ovReal64* solveThomsonProblem_098();
const ovReal64* solveThomsonProblem_099();
const ovReal64* solveThomsonProblem_100();
const ovReal64* solveThomsonProblem_101();
const ovReal64* solveThomsonProblem_102();
const ovReal64* solveThomsonProblem_103();
const ovReal64* solveThomsonProblem_104();
const ovReal64* solveThomsonProblem_105();
const ovReal64* solveThomsonProblem_106();
const ovReal64* solveThomsonProblem_107();
const ovReal64* solveThomsonProblem_108();
const ovReal64* solveThomsonProblem_109();
const ovReal64* solveThomsonProblem_110();
const ovReal64* solveThomsonProblem_111();
const ovReal64* solveThomsonProblem_112();
const ovReal64* solveThomsonProblem_113();
const ovReal64* solveThomsonProblem_114();
const ovReal64* solveThomsonProblem_115();
const ovReal64* solveThomsonProblem_116();
const ovReal64* solveThomsonProblem_117();
const ovReal64* solveThomsonProblem_118();
const ovReal64* solveThomsonProblem_119();
const ovReal64* solveThomsonProblem_120();
const ovReal64* solveThomsonProblem_121();
const ovReal64* solveThomsonProblem_122();
const ovReal64* solveThomsonProblem_123();
const ovReal64* solveThomsonProblem_124();
const ovReal64* solveThomsonProblem_125();
const ovReal64* solveThomsonProblem_126();
const ovReal64* solveThomsonProblem_127();
const ovReal64* solveThomsonProblem_128();
const ovReal64* solveThomsonProblem_129();
const ovReal64* solveThomsonProblem_130();
const ovReal64* solveThomsonProblem_131();
const ovReal64* solveThomsonProblem_132();
const ovReal64* solveThomsonProblem_133();
const ovReal64* solveThomsonProblem_134();
const ovReal64* solveThomsonProblem_135();
const ovReal64* solveThomsonProblem_136();
const ovReal64* solveThomsonProblem_137();
const ovReal64* solveThomsonProblem_138();
const ovReal64* solveThomsonProblem_139();
const ovReal64* solveThomsonProblem_140();
const ovReal64* solveThomsonProblem_141();
const ovReal64* solveThomsonProblem_142();
const ovReal64* solveThomsonProblem_143();
const ovReal64* solveThomsonProblem_144();
const ovReal64* solveThomsonProblem_145();
const ovReal64* solveThomsonProblem_146();
const ovReal64* solveThomsonProblem_147();
const ovReal64* solveThomsonProblem_148();
const ovReal64* solveThomsonProblem_149();
const ovReal64* solveThomsonProblem_150();
const ovReal64* solveThomsonProblem_151();
const ovReal64* solveThomsonProblem_152();
const ovReal64* solveThomsonProblem_153();
const ovReal64* solveThomsonProblem_154();
const ovReal64* solveThomsonProblem_155();
const ovReal64* solveThomsonProblem_156();
const ovReal64* solveThomsonProblem_157();
const ovReal64* solveThomsonProblem_158();
const ovReal64* solveThomsonProblem_159();
const ovReal64* solveThomsonProblem_160();
const ovReal64* solveThomsonProblem_161();
const ovReal64* solveThomsonProblem_162();
const ovReal64* solveThomsonProblem_163();
const ovReal64* solveThomsonProblem_164();
const ovReal64* solveThomsonProblem_165();
const ovReal64* solveThomsonProblem_166();
const ovReal64* solveThomsonProblem_167();
const ovReal64* solveThomsonProblem_168();
const ovReal64* solveThomsonProblem_169();
const ovReal64* solveThomsonProblem_170();
const ovReal64* solveThomsonProblem_171();
const ovReal64* solveThomsonProblem_172();
const ovReal64* solveThomsonProblem_173();
const ovReal64* solveThomsonProblem_174();
const ovReal64* solveThomsonProblem_175();
const ovReal64* solveThomsonProblem_176();
const ovReal64* solveThomsonProblem_177();
const ovReal64* solveThomsonProblem_178();
const ovReal64* solveThomsonProblem_179();
const ovReal64* solveThomsonProblem_180();
const ovReal64* solveThomsonProblem_181();
const ovReal64* solveThomsonProblem_182();
const ovReal64* solveThomsonProblem_183();
const ovReal64* solveThomsonProblem_184();
const ovReal64* solveThomsonProblem_185();
const ovReal64* solveThomsonProblem_186();
const ovReal64* solveThomsonProblem_187();
const ovReal64* solveThomsonProblem_188();
const ovReal64* solveThomsonProblem_189();
const ovReal64* solveThomsonProblem_190();
const ovReal64* solveThomsonProblem_191();
const ovReal64* solveThomsonProblem_192();
const ovReal64* solveThomsonProblem_193();
const ovReal64* solveThomsonProblem_194();
const ovReal64* solveThomsonProblem_195();
const ovReal64* solveThomsonProblem_196();
const ovReal64* solveThomsonProblem_197();
const ovReal64* solveThomsonProblem_198();
const ovReal64* solveThomsonProblem_199();
const ovReal64* solveThomsonProblem_200();
const ovReal64* solveThomsonProblem_201();
const ovReal64* solveThomsonProblem_202();
const ovReal64* solveThomsonProblem_203();
const ovReal64* solveThomsonProblem_204();
const ovReal64* solveThomsonProblem_205();
const ovReal64* solveThomsonProblem_206();
const ovReal64* solveThomsonProblem_207();
const ovReal64* solveThomsonProblem_208();
const ovReal64* solveThomsonProblem_209();
const ovReal64* solveThomsonProblem_210();
const ovReal64* solveThomsonProblem_211();
const ovReal64* solveThomsonProblem_212();
const ovReal64* solveThomsonProblem_213();
const ovReal64* solveThomsonProblem_214();
const ovReal64* solveThomsonProblem_215();
const ovReal64* solveThomsonProblem_216();
const ovReal64* solveThomsonProblem_217();
const ovReal64* solveThomsonProblem_218();
const ovReal64* solveThomsonProblem_219();
const ovReal64* solveThomsonProblem_220();
const ovReal64* solveThomsonProblem_221();
const ovReal64* solveThomsonProblem_222();
const ovReal64* solveThomsonProblem_223();
const ovReal64* solveThomsonProblem_224();
const ovReal64* solveThomsonProblem_225();
const ovReal64* solveThomsonProblem_226();
const ovReal64* solveThomsonProblem_227();
const ovReal64* solveThomsonProblem_228();
const ovReal64* solveThomsonProblem_229();
const ovReal64* solveThomsonProblem_230();
const ovReal64* solveThomsonProblem_231();
const ovReal64* solveThomsonProblem_232();
const ovReal64* solveThomsonProblem_233();
const ovReal64* solveThomsonProblem_234();
const ovReal64* solveThomsonProblem_235();
const ovReal64* solveThomsonProblem_236();
const ovReal64* solveThomsonProblem_237();
const ovReal64* solveThomsonProblem_238();
const ovReal64* solveThomsonProblem_239();
const ovReal64* solveThomsonProblem_240();
const ovReal64* solveThomsonProblem_241();
const ovReal64* solveThomsonProblem_242();
const ovReal64* solveThomsonProblem_243();
const ovReal64* solveThomsonProblem_244();
const ovReal64* solveThomsonProblem_245();
const ovReal64* solveThomsonProblem_246();
const ovReal64* solveThomsonProblem_247();
const ovReal64* solveThomsonProblem_248();
const ovReal64* solveThomsonProblem_249();
const ovReal64* solveThomsonProblem_250();
const ovReal64* solveThomsonProblem_251();
const ovReal64* solveThomsonProblem_252();
const ovReal64* solveThomsonProblem_253();
const ovReal64* solveThomsonProblem_254();
const ovReal64* solveThomsonProblem_255();
const ovReal64* solveThomsonProblem_256();
const ovReal64* solveThomsonProblem_257();
const ovReal64* solveThomsonProblem_258();
const ovReal64* solveThomsonProblem_259();
const ovReal64* solveThomsonProblem_260();
const ovReal64* solveThomsonProblem_261();
const ovReal64* solveThomsonProblem_262();
const ovReal64* solveThomsonProblem_263();
const ovReal64* solveThomsonProblem_264();
const ovReal64* solveThomsonProblem_265();
const ovReal64* solveThomsonProblem_266();
const ovReal64* solveThomsonProblem_267();
const ovReal64* solveThomsonProblem_268();
const ovReal64* solveThomsonProblem_269();
const ovReal64* solveThomsonProblem_270();
const ovReal64* solveThomsonProblem_271();
const ovReal64* solveThomsonProblem_272();
const ovReal64* solveThomsonProblem_273();
const ovReal64* solveThomsonProblem_274();
const ovReal64* solveThomsonProblem_275();
const ovReal64* solveThomsonProblem_276();
const ovReal64* solveThomsonProblem_277();
const ovReal64* solveThomsonProblem_278();
const ovReal64* solveThomsonProblem_279();
const ovReal64* solveThomsonProblem_280();
const ovReal64* solveThomsonProblem_281();
const ovReal64* solveThomsonProblem_282();
const ovReal64* solveThomsonProblem_283();
const ovReal64* solveThomsonProblem_284();
const ovReal64* solveThomsonProblem_285();
const ovReal64* solveThomsonProblem_286();
const ovReal64* solveThomsonProblem_287();
const ovReal64* solveThomsonProblem_288();
const ovReal64* solveThomsonProblem_289();
const ovReal64* solveThomsonProblem_290();
const ovReal64* solveThomsonProblem_291();
const ovReal64* solveThomsonProblem_292();
const ovReal64* solveThomsonProblem_293();
const ovReal64* solveThomsonProblem_294();
const ovReal64* solveThomsonProblem_295();
const ovReal64* solveThomsonProblem_296();
const ovReal64* solveThomsonProblem_297();
const ovReal64* solveThomsonProblem_298();
const ovReal64* solveThomsonProblem_299();
const ovReal64* solveThomsonProblem_300();
const ovReal64* solveThomsonProblem_301();
const ovReal64* solveThomsonProblem_302();
const ovReal64* solveThomsonProblem_303();
const ovReal64* solveThomsonProblem_304();
const ovReal64* solveThomsonProblem_305();
const ovReal64* solveThomsonProblem_306();
const ovReal64* solveThomsonProblem_307();
const ovReal64* solveThomsonProblem_308();
const ovReal64* solveThomsonProblem_309();
const ovReal64* solveThomsonProblem_310();
const ovReal64* solveThomsonProblem_311();
const ovReal64* solveThomsonProblem_312();
const ovReal64* solveThomsonProblem_313();
const ovReal64* solveThomsonProblem_314();
const ovReal64* solveThomsonProblem_315();
const ovReal64* solveThomsonProblem_316();
const ovReal64* solveThomsonProblem_317();
const ovReal64* solveThomsonProblem_318();
const ovReal64* solveThomsonProblem_319();
const ovReal64* solveThomsonProblem_320();
const ovReal64* solveThomsonProblem_321();
const ovReal64* solveThomsonProblem_322();
const ovReal64* solveThomsonProblem_323();
const ovReal64* solveThomsonProblem_324();
const ovReal64* solveThomsonProblem_325();
const ovReal64* solveThomsonProblem_326();
const ovReal64* solveThomsonProblem_327();
const ovReal64* solveThomsonProblem_328();
const ovReal64* solveThomsonProblem_329();
const ovReal64* solveThomsonProblem_330();
const ovReal64* solveThomsonProblem_331();
const ovReal64* solveThomsonProblem_332();
const ovReal64* solveThomsonProblem_333();
const ovReal64* solveThomsonProblem_334();
const ovReal64* solveThomsonProblem_335();
const ovReal64* solveThomsonProblem_336();
const ovReal64* solveThomsonProblem_337();
const ovReal64* solveThomsonProblem_338();
const ovReal64* solveThomsonProblem_339();
const ovReal64* solveThomsonProblem_340();
const ovReal64* solveThomsonProblem_341();
const ovReal64* solveThomsonProblem_342();
const ovReal64* solveThomsonProblem_343();
const ovReal64* solveThomsonProblem_344();
const ovReal64* solveThomsonProblem_345();
const ovReal64* solveThomsonProblem_346();
const ovReal64* solveThomsonProblem_347();
const ovReal64* solveThomsonProblem_348();
const ovReal64* solveThomsonProblem_349();
const ovReal64* solveThomsonProblem_350();
const ovReal64* solveThomsonProblem_351();
const ovReal64* solveThomsonProblem_352();
const ovReal64* solveThomsonProblem_353();
const ovReal64* solveThomsonProblem_354();
const ovReal64* solveThomsonProblem_355();
const ovReal64* solveThomsonProblem_356();
const ovReal64* solveThomsonProblem_357();
const ovReal64* solveThomsonProblem_358();
const ovReal64* solveThomsonProblem_359();
const ovReal64* solveThomsonProblem_360();
const ovReal64* solveThomsonProblem_361();
const ovReal64* solveThomsonProblem_362();
const ovReal64* solveThomsonProblem_363();
const ovReal64* solveThomsonProblem_364();
const ovReal64* solveThomsonProblem_365();
const ovReal64* solveThomsonProblem_366();
const ovReal64* solveThomsonProblem_367();
const ovReal64* solveThomsonProblem_368();
const ovReal64* solveThomsonProblem_369();
const ovReal64* solveThomsonProblem_370();
const ovReal64* solveThomsonProblem_371();
const ovReal64* solveThomsonProblem_372();
const ovReal64* solveThomsonProblem_373();
const ovReal64* solveThomsonProblem_374();
const ovReal64* solveThomsonProblem_375();
const ovReal64* solveThomsonProblem_376();
const ovReal64* solveThomsonProblem_377();
const ovReal64* solveThomsonProblem_378();
const ovReal64* solveThomsonProblem_379();
const ovReal64* solveThomsonProblem_380();
const ovReal64* solveThomsonProblem_381();
const ovReal64* solveThomsonProblem_382();
const ovReal64* solveThomsonProblem_383();
const ovReal64* solveThomsonProblem_384();
const ovReal64* solveThomsonProblem_385();
const ovReal64* solveThomsonProblem_386();
const ovReal64* solveThomsonProblem_387();
const ovReal64* solveThomsonProblem_388();
const ovReal64* solveThomsonProblem_389();
const ovReal64* solveThomsonProblem_390();
const ovReal64* solveThomsonProblem_391();
const ovReal64* solveThomsonProblem_392();
const ovReal64* solveThomsonProblem_393();
const ovReal64* solveThomsonProblem_394();
const ovReal64* solveThomsonProblem_395();
const ovReal64* solveThomsonProblem_396();
const ovReal64* solveThomsonProblem_397();
const ovReal64* solveThomsonProblem_398();
const ovReal64* solveThomsonProblem_399();
const ovReal64* solveThomsonProblem_400();

static_assert(details::g_nbThomsonTables == 400);

const ovReal64* details::selectThomsonTable(unsigned long nbPoints)
{
    switch (nbPoints)
    {
    case 1:
        return solveThomsonProblem_001();
    case 2:
        return solveThomsonProblem_002();
    case 3:
        return solveThomsonProblem_003();
    case 4:
        return solveThomsonProblem_004();
    case 5:
        return solveThomsonProblem_005();
    case 6:
        return solveThomsonProblem_006();
    case 7:
        return solveThomsonProblem_007();
    case 8:
        return solveThomsonProblem_008();
    case 9:
        return solveThomsonProblem_009();
    case 10:
        return solveThomsonProblem_010();
    case 11:
        return solveThomsonProblem_011();
    case 12:
        return solveThomsonProblem_012();
    case 13:
        return solveThomsonProblem_013();
    case 14:
        return solveThomsonProblem_014();
    case 15:
        return solveThomsonProblem_015();
    case 16:
        return solveThomsonProblem_016();
    case 17:
        return solveThomsonProblem_017();
    case 18:
        return solveThomsonProblem_018();
    case 19:
        return solveThomsonProblem_019();
    case 20:
        return solveThomsonProblem_020();
    case 21:
        return solveThomsonProblem_021();
    case 22:
        return solveThomsonProblem_022();
    case 23:
        return solveThomsonProblem_023();
    case 24:
        return solveThomsonProblem_024();
    case 25:
        return solveThomsonProblem_025();
    case 26:
        return solveThomsonProblem_026();
    case 27:
        return solveThomsonProblem_027();
    case 28:
        return solveThomsonProblem_028();
    case 29:
        return solveThomsonProblem_029();
    case 30:
        return solveThomsonProblem_030();
    case 31:
        return solveThomsonProblem_031();
    case 32:
        return solveThomsonProblem_032();
    case 33:
        return solveThomsonProblem_033();
    case 34:
        return solveThomsonProblem_034();
    case 35:
        return solveThomsonProblem_035();
    case 36:
        return solveThomsonProblem_036();
    case 37:
        return solveThomsonProblem_037();
    case 38:
        return solveThomsonProblem_038();
    case 39:
        return solveThomsonProblem_039();
    case 40:
        return solveThomsonProblem_040();
    case 41:
        return solveThomsonProblem_041();
    case 42:
        return solveThomsonProblem_042();
    case 43:
        return solveThomsonProblem_043();
    case 44:
        return solveThomsonProblem_044();
    case 45:
        return solveThomsonProblem_045();
    case 46:
        return solveThomsonProblem_046();
    case 47:
        return solveThomsonProblem_047();
    case 48:
        return solveThomsonProblem_048();
    case 49:
        return solveThomsonProblem_049();
    case 50:
        return solveThomsonProblem_050();
    case 51:
        return solveThomsonProblem_051();
    case 52:
        return solveThomsonProblem_052();
    case 53:
        return solveThomsonProblem_053();
    case 54:
        return solveThomsonProblem_054();
    case 55:
        return solveThomsonProblem_055();
    case 56:
        return solveThomsonProblem_056();
    case 57:
        return solveThomsonProblem_057();
    case 58:
        return solveThomsonProblem_058();
    case 59:
        return solveThomsonProblem_059();
    case 60:
        return solveThomsonProblem_060();
    case 61:
        return solveThomsonProblem_061();
    case 62:
        return solveThomsonProblem_062();
    case 63:
        return solveThomsonProblem_063();
    case 64:
        return solveThomsonProblem_064();
    case 65:
        return solveThomsonProblem_065();
    case 66:
        return solveThomsonProblem_066();
    case 67:
        return solveThomsonProblem_067();
    case 68:
        return solveThomsonProblem_068();
    case 69:
        return solveThomsonProblem_069();
    case 70:
        return solveThomsonProblem_070();
    case 71:
        return solveThomsonProblem_071();
    case 72:
        return solveThomsonProblem_072();
    case 73:
        return solveThomsonProblem_073();
    case 74:
        return solveThomsonProblem_074();
    case 75:
        return solveThomsonProblem_075();
    case 76:
        return solveThomsonProblem_076();
    case 77:
        return solveThomsonProblem_077();
    case 78:
        return solveThomsonProblem_078();
    case 79:
        return solveThomsonProblem_079();
    case 80:
        return solveThomsonProblem_080();
    case 81:
        return solveThomsonProblem_081();
    case 82:
        return solveThomsonProblem_082();
    case 83:
        return solveThomsonProblem_083();
    case 84:
        return solveThomsonProblem_084();
    case 85:
        return solveThomsonProblem_085();
    case 86:
        return solveThomsonProblem_086();
    case 87:
        return solveThomsonProblem_087();
    case 88:
        return solveThomsonProblem_088();
    case 89:
        return solveThomsonProblem_089();
    case 90:
        return solveThomsonProblem_090();
    case 91:
        return solveThomsonProblem_091();
    case 92:
        return solveThomsonProblem_092();
    case 93:
        return solveThomsonProblem_093();
    case 94:
        return solveThomsonProblem_094();
    case 95:
        return solveThomsonProblem_095();
    case 96:
        return solveThomsonProblem_096();
    case 97:
        return solveThomsonProblem_097();
    case 98:
        return solveThomsonProblem_098();
    case 99:
        return solveThomsonProblem_099();
    case 100:
        return solveThomsonProblem_100();
    case 101:
        return solveThomsonProblem_101();
    case 102:
        return solveThomsonProblem_102();
    case 103:
        return solveThomsonProblem_103();
    case 104:
        return solveThomsonProblem_104();
    case 105:
        return solveThomsonProblem_105();
    case 106:
        return solveThomsonProblem_106();
    case 107:
        return solveThomsonProblem_107();
    case 108:
        return solveThomsonProblem_108();
    case 109:
        return solveThomsonProblem_109();
    case 110:
        return solveThomsonProblem_110();
    case 111:
        return solveThomsonProblem_111();
    case 112:
        return solveThomsonProblem_112();
    case 113:
        return solveThomsonProblem_113();
    case 114:
        return solveThomsonProblem_114();
    case 115:
        return solveThomsonProblem_115();
    case 116:
        return solveThomsonProblem_116();
    case 117:
        return solveThomsonProblem_117();
    case 118:
        return solveThomsonProblem_118();
    case 119:
        return solveThomsonProblem_119();
    case 120:
        return solveThomsonProblem_120();
    case 121:
        return solveThomsonProblem_121();
    case 122:
        return solveThomsonProblem_122();
    case 123:
        return solveThomsonProblem_123();
    case 124:
        return solveThomsonProblem_124();
    case 125:
        return solveThomsonProblem_125();
    case 126:
        return solveThomsonProblem_126();
    case 127:
        return solveThomsonProblem_127();
    case 128:
        return solveThomsonProblem_128();
    case 129:
        return solveThomsonProblem_129();
    case 130:
        return solveThomsonProblem_130();
    case 131:
        return solveThomsonProblem_131();
    case 132:
        return solveThomsonProblem_132();
    case 133:
        return solveThomsonProblem_133();
    case 134:
        return solveThomsonProblem_134();
    case 135:
        return solveThomsonProblem_135();
    case 136:
        return solveThomsonProblem_136();
    case 137:
        return solveThomsonProblem_137();
    case 138:
        return solveThomsonProblem_138();
    case 139:
        return solveThomsonProblem_139();
    case 140:
        return solveThomsonProblem_140();
    case 141:
        return solveThomsonProblem_141();
    case 142:
        return solveThomsonProblem_142();
    case 143:
        return solveThomsonProblem_143();
    case 144:
        return solveThomsonProblem_144();
    case 145:
        return solveThomsonProblem_145();
    case 146:
        return solveThomsonProblem_146();
    case 147:
        return solveThomsonProblem_147();
    case 148:
        return solveThomsonProblem_148();
    case 149:
        return solveThomsonProblem_149();
    case 150:
        return solveThomsonProblem_150();
    case 151:
        return solveThomsonProblem_151();
    case 152:
        return solveThomsonProblem_152();
    case 153:
        return solveThomsonProblem_153();
    case 154:
        return solveThomsonProblem_154();
    case 155:
        return solveThomsonProblem_155();
    case 156:
        return solveThomsonProblem_156();
    case 157:
        return solveThomsonProblem_157();
    case 158:
        return solveThomsonProblem_158();
    case 159:
        return solveThomsonProblem_159();
    case 160:
        return solveThomsonProblem_160();
    case 161:
        return solveThomsonProblem_161();
    case 162:
        return solveThomsonProblem_162();
    case 163:
        return solveThomsonProblem_163();
    case 164:
        return solveThomsonProblem_164();
    case 165:
        return solveThomsonProblem_165();
    case 166:
        return solveThomsonProblem_166();
    case 167:
        return solveThomsonProblem_167();
    case 168:
        return solveThomsonProblem_168();
    case 169:
        return solveThomsonProblem_169();
    case 170:
        return solveThomsonProblem_170();
    case 171:
        return solveThomsonProblem_171();
    case 172:
        return solveThomsonProblem_172();
    case 173:
        return solveThomsonProblem_173();
    case 174:
        return solveThomsonProblem_174();
    case 175:
        return solveThomsonProblem_175();
    case 176:
        return solveThomsonProblem_176();
    case 177:
        return solveThomsonProblem_177();
    case 178:
        return solveThomsonProblem_178();
    case 179:
        return solveThomsonProblem_179();
    case 180:
        return solveThomsonProblem_180();
    case 181:
        return solveThomsonProblem_181();
    case 182:
        return solveThomsonProblem_182();
    case 183:
        return solveThomsonProblem_183();
    case 184:
        return solveThomsonProblem_184();
    case 185:
        return solveThomsonProblem_185();
    case 186:
        return solveThomsonProblem_186();
    case 187:
        return solveThomsonProblem_187();
    case 188:
        return solveThomsonProblem_188();
    case 189:
        return solveThomsonProblem_189();
    case 190:
        return solveThomsonProblem_190();
    case 191:
        return solveThomsonProblem_191();
    case 192:
        return solveThomsonProblem_192();
    case 193:
        return solveThomsonProblem_193();
    case 194:
        return solveThomsonProblem_194();
    case 195:
        return solveThomsonProblem_195();
    case 196:
        return solveThomsonProblem_196();
    case 197:
        return solveThomsonProblem_197();
    case 198:
        return solveThomsonProblem_198();
    case 199:
        return solveThomsonProblem_199();
    case 200:
        return solveThomsonProblem_200();
    case 201:
        return solveThomsonProblem_201();
    case 202:
        return solveThomsonProblem_202();
    case 203:
        return solveThomsonProblem_203();
    case 204:
        return solveThomsonProblem_204();
    case 205:
        return solveThomsonProblem_205();
    case 206:
        return solveThomsonProblem_206();
    case 207:
        return solveThomsonProblem_207();
    case 208:
        return solveThomsonProblem_208();
    case 209:
        return solveThomsonProblem_209();
    case 210:
        return solveThomsonProblem_210();
    case 211:
        return solveThomsonProblem_211();
    case 212:
        return solveThomsonProblem_212();
    case 213:
        return solveThomsonProblem_213();
    case 214:
        return solveThomsonProblem_214();
    case 215:
        return solveThomsonProblem_215();
    case 216:
        return solveThomsonProblem_216();
    case 217:
        return solveThomsonProblem_217();
    case 218:
        return solveThomsonProblem_218();
    case 219:
        return solveThomsonProblem_219();
    case 220:
        return solveThomsonProblem_220();
    case 221:
        return solveThomsonProblem_221();
    case 222:
        return solveThomsonProblem_222();
    case 223:
        return solveThomsonProblem_223();
    case 224:
        return solveThomsonProblem_224();
    case 225:
        return solveThomsonProblem_225();
    case 226:
        return solveThomsonProblem_226();
    case 227:
        return solveThomsonProblem_227();
    case 228:
        return solveThomsonProblem_228();
    case 229:
        return solveThomsonProblem_229();
    case 230:
        return solveThomsonProblem_230();
    case 231:
        return solveThomsonProblem_231();
    case 232:
        return solveThomsonProblem_232();
    case 233:
        return solveThomsonProblem_233();
    case 234:
        return solveThomsonProblem_234();
    case 235:
        return solveThomsonProblem_235();
    case 236:
        return solveThomsonProblem_236();
    case 237:
        return solveThomsonProblem_237();
    case 238:
        return solveThomsonProblem_238();
    case 239:
        return solveThomsonProblem_239();
    case 240:
        return solveThomsonProblem_240();
    case 241:
        return solveThomsonProblem_241();
    case 242:
        return solveThomsonProblem_242();
    case 243:
        return solveThomsonProblem_243();
    case 244:
        return solveThomsonProblem_244();
    case 245:
        return solveThomsonProblem_245();
    case 246:
        return solveThomsonProblem_246();
    case 247:
        return solveThomsonProblem_247();
    case 248:
        return solveThomsonProblem_248();
    case 249:
        return solveThomsonProblem_249();
    case 250:
        return solveThomsonProblem_250();
    case 251:
        return solveThomsonProblem_251();
    case 252:
        return solveThomsonProblem_252();
    case 253:
        return solveThomsonProblem_253();
    case 254:
        return solveThomsonProblem_254();
    case 255:
        return solveThomsonProblem_255();
    case 256:
        return solveThomsonProblem_256();
    case 257:
        return solveThomsonProblem_257();
    case 258:
        return solveThomsonProblem_258();
    case 259:
        return solveThomsonProblem_259();
    case 260:
        return solveThomsonProblem_260();
    case 261:
        return solveThomsonProblem_261();
    case 262:
        return solveThomsonProblem_262();
    case 263:
        return solveThomsonProblem_263();
    case 264:
        return solveThomsonProblem_264();
    case 265:
        return solveThomsonProblem_265();
    case 266:
        return solveThomsonProblem_266();
    case 267:
        return solveThomsonProblem_267();
    case 268:
        return solveThomsonProblem_268();
    case 269:
        return solveThomsonProblem_269();
    case 270:
        return solveThomsonProblem_270();
    case 271:
        return solveThomsonProblem_271();
    case 272:
        return solveThomsonProblem_272();
    case 273:
        return solveThomsonProblem_273();
    case 274:
        return solveThomsonProblem_274();
    case 275:
        return solveThomsonProblem_275();
    case 276:
        return solveThomsonProblem_276();
    case 277:
        return solveThomsonProblem_277();
    case 278:
        return solveThomsonProblem_278();
    case 279:
        return solveThomsonProblem_279();
    case 280:
        return solveThomsonProblem_280();
    case 281:
        return solveThomsonProblem_281();
    case 282:
        return solveThomsonProblem_282();
    case 283:
        return solveThomsonProblem_283();
    case 284:
        return solveThomsonProblem_284();
    case 285:
        return solveThomsonProblem_285();
    case 286:
        return solveThomsonProblem_286();
    case 287:
        return solveThomsonProblem_287();
    case 288:
        return solveThomsonProblem_288();
    case 289:
        return solveThomsonProblem_289();
    case 290:
        return solveThomsonProblem_290();
    case 291:
        return solveThomsonProblem_291();
    case 292:
        return solveThomsonProblem_292();
    case 293:
        return solveThomsonProblem_293();
    case 294:
        return solveThomsonProblem_294();
    case 295:
        return solveThomsonProblem_295();
    case 296:
        return solveThomsonProblem_296();
    case 297:
        return solveThomsonProblem_297();
    case 298:
        return solveThomsonProblem_298();
    case 299:
        return solveThomsonProblem_299();
    case 300:
        return solveThomsonProblem_300();
    case 301:
        return solveThomsonProblem_301();
    case 302:
        return solveThomsonProblem_302();
    case 303:
        return solveThomsonProblem_303();
    case 304:
        return solveThomsonProblem_304();
    case 305:
        return solveThomsonProblem_305();
    case 306:
        return solveThomsonProblem_306();
    case 307:
        return solveThomsonProblem_307();
    case 308:
        return solveThomsonProblem_308();
    case 309:
        return solveThomsonProblem_309();
    case 310:
        return solveThomsonProblem_310();
    case 311:
        return solveThomsonProblem_311();
    case 312:
        return solveThomsonProblem_312();
    case 313:
        return solveThomsonProblem_313();
    case 314:
        return solveThomsonProblem_314();
    case 315:
        return solveThomsonProblem_315();
    case 316:
        return solveThomsonProblem_316();
    case 317:
        return solveThomsonProblem_317();
    case 318:
        return solveThomsonProblem_318();
    case 319:
        return solveThomsonProblem_319();
    case 320:
        return solveThomsonProblem_320();
    case 321:
        return solveThomsonProblem_321();
    case 322:
        return solveThomsonProblem_322();
    case 323:
        return solveThomsonProblem_323();
    case 324:
        return solveThomsonProblem_324();
    case 325:
        return solveThomsonProblem_325();
    case 326:
        return solveThomsonProblem_326();
    case 327:
        return solveThomsonProblem_327();
    case 328:
        return solveThomsonProblem_328();
    case 329:
        return solveThomsonProblem_329();
    case 330:
        return solveThomsonProblem_330();
    case 331:
        return solveThomsonProblem_331();
    case 332:
        return solveThomsonProblem_332();
    case 333:
        return solveThomsonProblem_333();
    case 334:
        return solveThomsonProblem_334();
    case 335:
        return solveThomsonProblem_335();
    case 336:
        return solveThomsonProblem_336();
    case 337:
        return solveThomsonProblem_337();
    case 338:
        return solveThomsonProblem_338();
    case 339:
        return solveThomsonProblem_339();
    case 340:
        return solveThomsonProblem_340();
    case 341:
        return solveThomsonProblem_341();
    case 342:
        return solveThomsonProblem_342();
    case 343:
        return solveThomsonProblem_343();
    case 344:
        return solveThomsonProblem_344();
    case 345:
        return solveThomsonProblem_345();
    case 346:
        return solveThomsonProblem_346();
    case 347:
        return solveThomsonProblem_347();
    case 348:
        return solveThomsonProblem_348();
    case 349:
        return solveThomsonProblem_349();
    case 350:
        return solveThomsonProblem_350();
    case 351:
        return solveThomsonProblem_351();
    case 352:
        return solveThomsonProblem_352();
    case 353:
        return solveThomsonProblem_353();
    case 354:
        return solveThomsonProblem_354();
    case 355:
        return solveThomsonProblem_355();
    case 356:
        return solveThomsonProblem_356();
    case 357:
        return solveThomsonProblem_357();
    case 358:
        return solveThomsonProblem_358();
    case 359:
        return solveThomsonProblem_359();
    case 360:
        return solveThomsonProblem_360();
    case 361:
        return solveThomsonProblem_361();
    case 362:
        return solveThomsonProblem_362();
    case 363:
        return solveThomsonProblem_363();
    case 364:
        return solveThomsonProblem_364();
    case 365:
        return solveThomsonProblem_365();
    case 366:
        return solveThomsonProblem_366();
    case 367:
        return solveThomsonProblem_367();
    case 368:
        return solveThomsonProblem_368();
    case 369:
        return solveThomsonProblem_369();
    case 370:
        return solveThomsonProblem_370();
    case 371:
        return solveThomsonProblem_371();
    case 372:
        return solveThomsonProblem_372();
    case 373:
        return solveThomsonProblem_373();
    case 374:
        return solveThomsonProblem_374();
    case 375:
        return solveThomsonProblem_375();
    case 376:
        return solveThomsonProblem_376();
    case 377:
        return solveThomsonProblem_377();
    case 378:
        return solveThomsonProblem_378();
    case 379:
        return solveThomsonProblem_379();
    case 380:
        return solveThomsonProblem_380();
    case 381:
        return solveThomsonProblem_381();
    case 382:
        return solveThomsonProblem_382();
    case 383:
        return solveThomsonProblem_383();
    case 384:
        return solveThomsonProblem_384();
    case 385:
        return solveThomsonProblem_385();
    case 386:
        return solveThomsonProblem_386();
    case 387:
        return solveThomsonProblem_387();
    case 388:
        return solveThomsonProblem_388();
    case 389:
        return solveThomsonProblem_389();
    case 390:
        return solveThomsonProblem_390();
    case 391:
        return solveThomsonProblem_391();
    case 392:
        return solveThomsonProblem_392();
    case 393:
        return solveThomsonProblem_393();
    case 394:
        return solveThomsonProblem_394();
    case 395:
        return solveThomsonProblem_395();
    case 396:
        return solveThomsonProblem_396();
    case 397:
        return solveThomsonProblem_397();
    case 398:
        return solveThomsonProblem_398();
    case 399:
        return solveThomsonProblem_399();
    case 400:
        return solveThomsonProblem_400();
    default:
        return nullptr;
    }
}

} // namespace math
} // namespace ovrix
