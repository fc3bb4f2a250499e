// The numbers of the texts that the language library gives. "%s" and "%d" are filled in by the caller, in order.
#pragma once

enum StringId : int {
    IDS_VERSION = 2481,                   // version text, begins with the major number
    IDS_STEP_FIRST = 2625,                // names of the five standard build steps
    IDS_STEP_SECOND = 2626,
    IDS_STEP_THIRD = 2627,
    IDS_STEP_FOURTH = 2628,
    IDS_STEP_FIFTH = 2683,
    IDS_TABS_ON = 2646,                   // menu text while the document tabs are off
    IDS_TABS_OFF = 2647,                  // menu text while they are on
    IDS_MAKEFILE_HEADER = 2699,           // format of a makefile's first line, %s the version text
    IDS_HELP_FAILED = 2727,
    IDS_RTOS_QUESTION = 61466,

    IDS_APP_TITLE = 100,                  // "Thornwell IDE"
    IDS_KIND_WARNING = 101,               // kind words behind the application title in the titles of the four boxes
    IDS_KIND_ERROR = 102,
    IDS_KIND_NOTICE = 103,
    IDS_KIND_QUESTION = 104,
    IDS_NO_LEXER_TITLE = 105,             // "SciLexer.dll" is missing
    IDS_NO_LEXER = 106,

    // Start-up lines of the build list
    IDS_LOADING_WORKSPACE = 200,
    IDS_NOTHING_TO_LOAD = 201,
    IDS_LOADED = 202,
    IDS_STARTUP_DONE = 203,               // after the plug-ins have been looked for
    IDS_BARS_RESET = 204,

    // Workspace and projects
    IDS_LABEL_WORKSPACE = 300,            // status pane and tab in multiple project mode
    IDS_TARGET_UNKNOWN = 301,             // %s the target, %s the default target; question
    IDS_TARGET_REPLACED = 302,            // %s the target; warning
    IDS_PROJECT_ACTIVE = 303,             // %s the project's name; build list
    IDS_PROJECT_READ_ONLY = 304,          // %s its file; build list
    IDS_STOP_DEBUGGING = 305,             // question
    IDS_OVERWRITE_FILE = 306,             // %s; question
    IDS_CANT_CREATE_FILE = 307,           // %s; error
    IDS_CANT_OPEN_WORKSPACE = 308,        // %s; error
    IDS_NO_SUCH_FILE = 309,               // %s; error
    IDS_NAME_EMPTY = 310,                 // warning
    IDS_PROJECT_IN_WORKSPACE = 311,       // %s; warning
    IDS_FILE_IN_PROJECT = 312,            // %s; warning
    IDS_CANT_ADD_PROJECT = 313,           // %s; error
    IDS_CANT_SET_COMPILER = 314,          // %s; error
    IDS_NO_COMPILER_SELECTED = 315,       // error
    IDS_EMPTY_TREE = 316,                 // "empty"
    IDS_REMOVE_FILE_QUESTION = 317,       // %s; question
    IDS_CREATE_WORKSPACE = 318,           // %s; question, see the recent workspaces
    IDS_CREATE_PROJECT = 319,             // %s; question
    IDS_TOOLSUITE_MISSING = 320,          // %s the toolsuite, %s the project; build list
    IDS_PROJECT_KIND_EMPTY = 321,         // the three kinds of a new project
    IDS_PROJECT_KIND_SOURCE = 322,
    IDS_PROJECT_KIND_HEADER = 323,
    IDS_NOT_A_PROJECT = 324,              // %s; build list: the file holds no profile text
    IDS_REMOVE_PROJECT_QUESTION = 325,    // %s; question
    IDS_CONFIG_UNKNOWN = 326,             // %s the configuration, %s the project; build list
    IDS_CANT_REMOVE_FILE = 327,           // %s; error

    // Project tree
    IDS_OUTPUT_FOLDER = 330,
    IDS_FILE_ENTRY_UNREADABLE = 331,      // %d the numbers, %s the project; error
    IDS_DIALOG_OUTPUT_LIST = 332,
    IDS_LABEL_OUTPUT_LIST = 333,          // %s the project
    IDS_OUTPUT_LIST_HINT = 334,           // %s, %s, %s the variables of project, configuration, chip
    IDS_OUTPUT_LIST_DEFAULT = 335,        // button
    IDS_ROW_OPEN = 336,                   // %s the row; menu entry
    IDS_ROW_REMOVE = 337,                 // %s the row
    IDS_ROW_RELATIVE = 338,               // %s the row
    IDS_ROW_ACTIVATE = 339,               // %s the row
    IDS_ROW_ADD_FILES = 340,              // %s the row
    IDS_ROW_ADD_NEW_FILE = 341,           // %s the row
    IDS_ROW_OUTPUT_LIST = 342,            // %s the row
    IDS_ROW_BUILD = 343,                  // %s the row
    IDS_ROW_REBUILD = 344,                // %s the row
    IDS_ROW_CLEAN = 345,                  // %s the row
    IDS_ROW_REMOVE_PROJECT = 346,         // %s the row
    IDS_OUTPUT_LIST_NOT_SAVED = 347,      // %s the project's file; error
    IDS_OUTPUT_LIST_TOO_LONG = 348,       // %d the longest; warning

    // Build
    IDS_BUILD_START = 400,                // %s the project's name
    IDS_CLEAN_START = 401,
    IDS_BUILD_FAILED = 402,
    IDS_BUILD_STOPPED = 403,
    IDS_STEP_DONE = 404,                  // a step's end
    IDS_STEP_PLAIN = 405,                 // name of a plain step
    IDS_STEP_START_FAILED = 406,          // %s the step's name
    IDS_NEXT_STEP_FAILED = 407,           // a start that emptied the queue
    IDS_OUTPUT_MISSING = 408,             // %s the file
    IDS_DOCUMENT_RELOADED = 409,          // %s
    IDS_DOCUMENT_CLOSED = 410,            // %s
    IDS_MAKEFILE_CANT_OPEN = 411,         // %s
    IDS_SOURCES_FAILED = 412,
    IDS_STEP_COMMAND_FAILED = 413,        // %s the step's name; error
    IDS_NO_WORKSPACE = 414,               // error
    IDS_STEP_NAME_WARNING = 415,          // a second step whose command names the project's .asm file
    IDS_STEP_PROJECT = 416,               // %s the active project; line before the fifth step
    IDS_CLIPBOARD_FAILED = 417,           // error
    IDS_MAKE_NO_TOOLSUITE = 418,          // %s the project

    // Documents
    IDS_CANT_READ_FILE = 500,             // %s; build list
    IDS_CANT_WRITE_FILE = 501,            // %s; error
    IDS_FILE_READ_ONLY = 502,             // %s; build list
    IDS_FILE_MISSING = 503,               // %s; build list
    IDS_SAVE_CHANGES = 504,               // %s; question
    IDS_FILE_CHANGED = 505,               // %s; question
    IDS_FILE_DELETED = 506,               // %s; notice
    IDS_UNTITLED = 507,                   // title of a new document, a number follows
    IDS_DEBUG_READ_ONLY = 508,            // typing during a debug run; build list
    IDS_FILE_CUT = 509,                   // %s: shown up to a zero byte; build list
    IDS_PARTIAL_NOT_SAVED = 510,          // %s; error
    IDS_FILE_IS_FOLDER = 511,             // %s; build list
    IDS_FILE_IS_SPECIAL = 512,            // %s a pipe, device or socket; build list
    IDS_FILE_FORBIDDEN = 513,             // %s; build list
    IDS_FILE_TOO_LARGE = 514,             // %s, %s its size in MB; build list
    IDS_FILE_LARGE_QUESTION = 515,        // %s, %s its size in MB; question
    IDS_FILE_SHOWN_PLAIN = 516,           // %s: too large for colours; build list
    IDS_FILE_LONG_LINES = 517,            // %s: its lines are too long for colours; build list
    IDS_FILE_LINES_BROKEN = 519,          // %s: its lines are too long to be shown whole; build list
    IDS_MENU_COUNTERPART = 518,           // %s the file's name; menu entry

    // Debug run; all in the build list
    IDS_DEBUG_START = 850,                // %s the project
    IDS_DEBUG_INIT_FAILED = 851,          // %s the chip
    IDS_DEBUG_ADVICE_FIRST = 852,         // six lines
    IDS_DEBUG_ADVICE_SECOND = 853,
    IDS_DEBUG_ADVICE_THIRD = 854,
    IDS_DEBUG_ADVICE_FOURTH = 855,
    IDS_DEBUG_ADVICE_FIFTH = 856,
    IDS_DEBUG_ADVICE_LAST = 857,
    IDS_DEBUG_NO_ENGINE = 858,
    IDS_DEBUG_LOAD_FAILED = 859,          // %s the image
    IDS_DEBUG_NOTE_SLEEP = 860,
    IDS_DEBUG_NOTE_STACK = 861,
    IDS_DEBUG_REFUSED = 862,              // %s the command's word
    IDS_DEBUG_NO_SOURCE = 863,
    IDS_BREAKPOINT_NOT_DELETED = 864,     // %s file, %d line
    IDS_MAIN_NOT_DELETED = 865,
    IDS_CLOCK_CYCLES = 866,               // %s; status bar
    IDS_CLOCK_KILO = 867,                 // %s times 1024
    IDS_CLOCK_MEGA = 868,                 // %s times 1024 x 1024
    IDS_BREAKPOINT_NO_CODE = 870,         // %s file, %d line
    IDS_RUN_TO_CURSOR_NO_CODE = 871,
    IDS_RUN_TO_CURSOR_MOVED = 872,
    IDS_BREAKPOINTS_MOVED = 873,
    IDS_BREAKPOINT_REFUSED = 874,         // %s file, %d line
    IDS_NO_STACK = 875,                   // row of the stack bar
    IDS_FRAME_NO_SOURCE = 876,            // %s the address
    IDS_DEBUG_PROFILE_REFUSED = 877,
    IDS_DEBUG_IMAGE_OLD = 869,            // %s a source; build list
    IDS_CONDITION_REFUSED = 878,          // %s file, %d line, %s words

    // Keyboard macros
    IDS_MACRO_NOT_RECORDING = 880,        // menu text of the record command
    IDS_MACRO_RECORDING = 881,            // the same during a recording
    IDS_MACRO_NAME_EMPTY = 882,           // build list
    IDS_MACRO_NAME_TAKEN = 883,           // %s; build list
    IDS_MACROS_FULL = 884,                // %d how many there can be; build list
    IDS_DIALOG_MACRO_NAME = 885,
    IDS_LABEL_MACRO_NAME = 886,
    IDS_DIALOG_MACROS = 887,
    IDS_LABEL_MACROS = 888,
    IDS_MACRO_DELETE = 889,
    IDS_MACRO_DELETE_ALL = 890,

    // Titles and labels of windows
    IDS_BAR_WORKSPACE = 600,
    IDS_BAR_OUTPUT = 601,
    IDS_TAB_BUILD = 602,
    IDS_TAB_FIND = 603,
    IDS_TAB_NOTICES = 604,
    IDS_BAR_MAIN = 605,
    IDS_BAR_BUILD = 606,
    IDS_BAR_MACRO = 607,
    IDS_BAR_DEBUG = 608,
    IDS_BAR_EDIT = 609,
    IDS_TAB_FILES = 610,
    IDS_DIALOG_GOTO_LINE = 620,
    IDS_LABEL_LINE = 621,                 // %d the last line
    IDS_DIALOG_COMPILER = 622,
    IDS_LABEL_COMPILER = 623,
    IDS_DIALOG_BUILD_OPTIONS = 624,
    IDS_LABEL_BUILD_STEPS = 625,
    IDS_DIALOG_NEW_PROJECT = 626,
    IDS_LABEL_PROJECT_KIND = 627,
    IDS_PAGE_BROWSER = 628,
    IDS_PAGE_DEBUGGER = 629,
    IDS_USE_SYS_HEADERS = 630,
    IDS_USE_SABLE_HEADERS = 631,
    IDS_DEBUG_FROM_MAIN = 632,
    IDS_DEF_WATCH_FORMAT = 633,
    IDS_FORMAT_DECIMAL = 634,
    IDS_FORMAT_BINARY = 635,
    IDS_FORMAT_OCTAL = 636,
    IDS_FORMAT_HEX = 637,
    IDS_DIALOG_LIBRARIES = 638,
    IDS_LABEL_LIBRARIES = 639,
    IDS_DIALOG_ABOUT = 640,
    IDS_ABOUT_TEXT = 641,

    IDS_BAR_REGISTERS = 650,
    IDS_BAR_WATCH = 651,
    IDS_BAR_RAM = 652,
    IDS_BAR_EEPROM = 653,
    IDS_BAR_STACK = 654,
    IDS_BAR_LISTING = 655,
    IDS_BAR_PROFILE = 656,
    IDS_DEBUG_BAR_EMPTY = 657,            // in the bars of a debug run while there is none
    IDS_PLUGIN_BAR_EMPTY = 658,           // %d the slot, from 0; title
    IDS_DIALOG_WINDOWS = 659,
    IDS_LABEL_WINDOWS = 660,
    IDS_WINDOWS_ACTIVATE = 661,
    IDS_WINDOWS_SAVE = 662,
    IDS_WINDOWS_CLOSE = 663,
    IDS_WINDOWS_NAME = 664,               // columns of the list
    IDS_WINDOWS_FOLDER = 665,

    // Listing bar
    IDS_TAB_LISTING = 830,
    IDS_NO_LISTING = 831,                 // text of the listing view while there is no listing
    IDS_NOT_IN_LISTING = 832,             // %s an address; build list

    // Menu texts that the frame looks for
    IDS_MENU_TOOLS = 700,
    IDS_MENU_WINDOW = 701,
    IDS_MENU_RECENT_FILES = 702,
    IDS_MENU_RECENT_WORKSPACES = 703,
    IDS_MENU_MACRO = 704,
    IDS_MENU_PLUGINS = 705,
    IDS_PLUGIN_MENU_EMPTY = 706,          // entry while there is no plug-in
    IDS_MENU_ALL_WINDOWS = 707,           // behind the first windows of the list

    // Find and replace
    IDS_DIALOG_FIND = 750,
    IDS_DIALOG_REPLACE = 751,
    IDS_LABEL_FIND_TEXT = 752,
    IDS_LABEL_REPLACEMENT = 753,
    IDS_FIND_OPTIONS = 754,
    IDS_FIND_MATCH_CASE = 755,
    IDS_FIND_WHOLE_WORD = 756,
    IDS_FIND_WORD_START = 757,
    IDS_FIND_REG_EXPR = 758,
    IDS_FIND_DIRECTION = 759,
    IDS_FIND_UP = 760,
    IDS_FIND_DOWN = 761,
    IDS_FIND_NEXT = 762,                  // buttons
    IDS_REPLACE_ONE = 763,
    IDS_REPLACE_ALL = 764,
    IDS_FIND_CLOSE = 765,
    IDS_WHOLE_WORD_TIP = 766,             // tool tips
    IDS_REG_EXPR_TIP = 767,
    IDS_TEXT_NOT_FOUND = 768,             // %s the text
    IDS_BAD_EXPRESSION = 769,             // %s the text
    IDS_REPLACED_COUNT = 770,             // %s the number
    IDS_REPLACE_READ_ONLY = 771,
    IDS_SEARCH_READY = 772,               // takes away what was told of the replacement before

    // Printing
    IDS_DIALOG_PAGE_SETUP = 780,
    IDS_GROUP_MARGINS = 781,
    IDS_LABEL_UNIT = 782,
    IDS_UNIT_INCHES = 783,
    IDS_UNIT_MM = 784,
    IDS_UNIT_PIXELS = 785,
    IDS_LABEL_MARGIN_TOP = 786,
    IDS_LABEL_MARGIN_BOTTOM = 787,
    IDS_LABEL_MARGIN_LEFT = 788,
    IDS_LABEL_MARGIN_RIGHT = 789,
    IDS_GROUP_HEADER = 790,
    IDS_GROUP_FOOTER = 791,
    IDS_ALIGN_LEFT = 792,
    IDS_ALIGN_CENTRE = 793,
    IDS_ALIGN_RIGHT = 794,
    IDS_HEADER_CODES = 795,               // tool tip of the buttons behind header and footer
    IDS_PAGE_SETUP_NOT_SAVED = 796,       // error
    IDS_PRINTING_PAGE = 797,              // %d the page, %d the number of pages
    IDS_PRINTING_CANCEL = 798,
    IDS_NO_PRINTER = 799,
    IDS_PRINT_FAILED = 800,
    IDS_PREVIEW_FAILED = 801,
    IDS_DIALOG_PREVIEW = 802,
    IDS_PREVIEW_PRINT = 803,
    IDS_PREVIEW_PREVIOUS = 804,
    IDS_PREVIEW_NEXT = 805,
    IDS_PREVIEW_PAGE = 806,               // in front of the box with the page's number
    IDS_PREVIEW_ZOOM_OUT = 807,
    IDS_PREVIEW_ZOOM_IN = 808,
    IDS_PREVIEW_CLOSE = 809,

    // Clock rate, about box, tip of the day
    IDS_DIALOG_CLOCK_RATE = 810,
    IDS_LABEL_CLOCK_RATE = 811,
    IDS_CLOCK_RATE_LIMIT = 812,           // %s the highest rate
    IDS_ABOUT_CREDITS = 813,              // %s the toolkit's version
    IDS_DIALOG_TIP = 900,
    IDS_TIP_HEADING = 901,
    IDS_TIP_NEXT = 902,
    IDS_TIP_CLOSE = 903,
    IDS_TIP_AT_START = 904,
    IDS_TIPS = 910,                       // the first tip; the others follow, at most to IDS_TIPS + kMostTips - 1

    // Symbols, call tree, function information, remarks
    IDS_SYMBOL_NOT_FOUND = 950,           // %s the symbol; build list
    IDS_GLOBAL_NO_SOURCE = 951,           // build list
    IDS_CTAGS_SLOW = 952,                 // %s the seconds; question
    IDS_CTAGS_ENDED = 953,                // build list
    IDS_DIALOG_EXTRA_LOCATIONS = 954,
    IDS_LABEL_EXTRA_LOCATIONS = 955,
    IDS_LOCATION_ADD_FILES = 956,         // buttons
    IDS_LOCATION_ADD_FOLDER = 957,
    IDS_LOCATION_REMOVE = 958,
    IDS_LOCATION_CHOOSE_FOLDER = 959,
    IDS_EXTRA_LOCATIONS_NOT_SAVED = 960,  // %s the file; error
    IDS_MENU_GOTO_DEFINITION = 961,       // %s the word; menu entries
    IDS_MENU_GOTO_FUNCTION = 962,         // %s the function
    IDS_MENU_FUNCTIONS = 963,
    IDS_TAB_SYMBOLS = 964,
    IDS_TAB_TODO = 965,
    IDS_GROUPING_BAR = 966,               // the tool bar's title
    IDS_COLUMN_TODO_KIND = 967,
    IDS_COLUMN_TODO_TEXT = 968,
    IDS_TAB_CALL_TREE = 969,
    IDS_TAB_FUNCTIONS = 970,
    IDS_COLUMN_FUNCTION = 971,
    IDS_COLUMN_ROM = 972,
    IDS_COLUMN_RAM = 973,
    IDS_COLUMN_RAM_PART = 974,
    IDS_NO_FUNCTION_DATA = 975,

    // Breakpoints: their dialogs and the context menu
    IDS_DIALOG_BREAKPOINTS = 980,
    IDS_BREAKPOINTS_REMOVE = 981,         // button
    IDS_BREAKPOINTS_REMOVE_ALL = 982,     // button
    IDS_BREAKPOINTS_GOTO = 983,           // button
    IDS_BREAKPOINTS_PROPERTIES = 984,     // button
    IDS_BREAKPOINT_GONE = 985,            // error
    IDS_DIALOG_BREAKPOINT = 986,
    IDS_BREAKPOINT_PLACE = 987,           // %s file, %d line
    IDS_BREAKPOINT_USE_CONDITION = 988,
    IDS_BREAKPOINT_WHEN_TRUE = 989,
    IDS_BREAKPOINT_WHEN_CHANGED = 990,
    IDS_BREAKPOINT_USE_HITS = 991,
    IDS_BREAKPOINT_HITS_AT_LEAST = 992,
    IDS_BREAKPOINT_HITS_EQUAL = 993,
    IDS_BREAKPOINT_HITS_MULTIPLE = 994,
    IDS_BREAKPOINT_HIT_COUNT = 995,       // %d
    IDS_BREAKPOINT_NO_COUNT = 996,        // no run
    IDS_BREAKPOINT_RESET_COUNT = 997,
    IDS_MENU_TOGGLE_BREAKPOINT = 998,     // %d the line; menu entries
    IDS_MENU_BREAKPOINT_PROPERTIES = 999,

    // Watches
    IDS_DIALOG_QUICK_WATCH = 1020,
    IDS_LABEL_EXPRESSION = 1021,
    IDS_WATCH_ERROR = 1022,               // in place of a value; also of a register
    IDS_WATCH_NOT_DEBUGGING = 1023,       // drop without a run; build list
    IDS_WATCH_NOT_SET = 1024,             // %s the expression; build list
    IDS_WATCH_NO_REGISTER = 1025,         // %s the expression; build list
    IDS_NOT_DECIMAL = 1026,               // four in the order of the number formats; build list
    IDS_NOT_BINARY = 1027,
    IDS_NOT_OCTAL = 1028,
    IDS_NOT_HEXADECIMAL = 1029,
    IDS_MENU_ADD_WATCH = 1030,            // %s the text; menu entry
    IDS_COLUMN_NAME = 1031,               // headers of watches and registers
    IDS_COLUMN_VALUE = 1032,

    // Registers, memory and watchpoints
    IDS_REGISTERS_FAILED = 1040,          // row
    IDS_REGISTERS_UNREADABLE = 1041,      // row
    IDS_REGISTER_BITS_UNREADABLE = 1042,  // %s the register; build list
    IDS_REGISTER_NOT_SET = 1043,          // %s the register; build list
    IDS_BIT_NOT_BINARY = 1044,            // build list
    IDS_WATCHPOINT_NOT_SET = 1045,        // %s the name; build list
    IDS_WATCHPOINT_NOT_REMOVED = 1046,    // %s the name; build list
    IDS_MENU_SET_WATCHPOINT = 1047,       // %s the place; menu entries
    IDS_MENU_CLEAR_WATCHPOINT = 1048,     // %s
    IDS_NO_EEPROM = 1049,                 // in the empty view
    IDS_MEMORY_CHANGED = 1050,            // six: what the looks of a byte mean; in tool tips
    IDS_MEMORY_UNREADABLE = 1051,
    IDS_MEMORY_WRITTEN = 1052,
    IDS_MEMORY_NOT_WRITTEN = 1053,
    IDS_MEMORY_POINTER = 1054,
    IDS_MEMORY_WATCHED = 1055,

    // Profile
    IDS_PROFILE_COPY_HEADER = 1060,       // first line of copied rows
    IDS_PROFILE_OFF = 1061,               // in the empty view

    // Editor settings
    IDS_DIALOG_EDITOR_SETTINGS = 710,
    IDS_PAGE_EDITOR_GENERAL = 711,
    IDS_PAGE_EDITOR_SYNTAX = 712,
    IDS_LABEL_COLOUR_SCHEME = 713,
    IDS_CHOOSE_SCHEME = 714,              // in the list of schemes while none is chosen
    IDS_GROUP_FONT = 715,
    IDS_LABEL_FONT = 716,
    IDS_LABEL_FONT_SIZE = 717,
    IDS_FONT_NOT_INSTALLED = 718,         // %s the font; tool tip
    IDS_GROUP_TABS = 719,
    IDS_LABEL_TAB_SIZE = 720,
    IDS_USE_TABS = 721,
    IDS_GROUP_TEXT = 722,
    IDS_LINE_NUMBERS = 723,
    IDS_INDENT_GUIDES = 724,
    IDS_FOLDING = 725,
    IDS_SMART_INDENT = 726,
    IDS_LABEL_STYLES = 727,
    IDS_LABEL_TEXT_COLOUR = 728,
    IDS_LABEL_BACK_COLOUR = 729,
    IDS_MORE_COLOURS = 730,
    IDS_STYLE_BOLD = 731,
    IDS_STYLE_ITALIC = 732,
    IDS_STYLE_UNDERLINE = 733,
    IDS_STYLE_NO_CHANGE = 734,            // selected text keeps its text colours
    IDS_EDITOR_SETTINGS_NOT_SAVED = 735,  // error
};

inline constexpr int kMostTips = 40;

// Menus, tool bars and accelerators of the language library.
enum ResourceId : int {
    IDR_MAINFRAME = 128,       // menu, accelerators, and the ordinary form of the build tool bar
    IDR_BUILD_STEP_FIRST = 173,
    IDR_BUILD_RUNNING = 174,
    IDR_BUILD_STEP_SECOND = 175,
    IDR_BUILD_STEP_FIFTH = 185,
    IDR_OUTPUT_MENU = 151,
    IDR_TOOLBAR_MAIN = 59392,
    IDR_TOOLBAR_DEBUG = 59512,
    IDR_TOOLBAR_EDIT = 59513,
    IDR_MACRO_RECORDING = 129,  // forms of the macro tool bar
    IDR_MACRO_PAUSED = 132,
    IDR_WORKSPACE_MENU_PROJECT = 152,
    IDR_WORKSPACE_MENU_FILE = 153,
    IDR_WORKSPACE_MENU_ROOT = 154,
    IDR_TAB_MENU = 155,
    IDR_BUILD_MENU = 156,      // of the build button's arrow
    IDR_VIEW_MENU = 157,       // of source text
    IDR_HEADER_MENU = 166,     // codes for the header and the footer of printed pages
    IDR_FOOTER_MENU = 167,
    IDR_BAR_MENU = 158,        // of a right click beside the bars
    IDR_GROUPING_MENU = 159,   // of the symbols
    IDR_WORKSPACE_MENU_OUTPUTS = 160,  // of the folder and the files that a build leaves
    IDR_REGISTER_MENU = 175,
    IDR_MEMORY_MENU = 176,
    IDR_WATCH_MENU = 177,
    IDR_TREE_MENU = 3001,      // of the call tree
};
