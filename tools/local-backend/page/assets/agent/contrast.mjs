// SPDX-License-Identifier: MIT
// The contrast of everything that a branding's colours decide in the messenger, by WCAG 2.1.

const text = 4.5;
const largeText = 3;

/** What is drawn in one colour, at an opacity, on another. */
const uses = [
    ['“Hello!”, in large letters', 'accent', 0.4, 'primary', largeText],
    ['Titles and buttons of bars', 'accent', 1, 'primary', text],
    ['Opening hours', 'fontColorBasic', 0.8, 'primary', text],
    ['New conversation', 'primary', 1, 'accent', text],
    ['New conversation, second line', 'primary', 0.6, 'accent', text],
    ['Headings and buttons', 'fontColorBasic', 1, 'chatBackground', text],
    ['Lines below messages', 'fontColorBasic', 0.7, 'chatBackground', text],
    ['Hint in the editor', 'fontColorBasic', 0.6, 'field', text],
    ['Empty list', 'accent', 1, 'chatBackground', text],
    ['Empty list, second line', 'accent', 0.6, 'chatBackground', text],
    ['Row of the list', 'fontColorAgentBubble', 1, 'bubbleAgent', text],
    ['Row of the list, second line', 'fontColorAgentBubble', 0.6, 'bubbleAgent', text],
    ['Unread mark', 'red', 1, 'bubbleAgent', largeText],
    ['Agents’ messages', 'fontColorAgentBubble', 1, 'bubbleAgent', text],
    ['Customers’ messages', 'fontColorUserBubble', 1, 'bubbleUser', text],
];

// The same grey as the library shows for a text that is not a colour.
const grey = [128, 128, 128];

function channels(colour) {
    const digits = String(colour).trim().replace('#', '');
    if (!/^[0-9a-f]{6}$/iu.test(digits))
        return grey;
    return [0, 2, 4].map((at) => parseInt(digits.slice(at, at + 2), 16));
}

function mixed(foreground, opacity, ground) {
    return foreground.map((value, at) => value * opacity + ground[at] * (1 - opacity));
}

function luminance(colour) {
    const [red, green, blue] = colour.map((value) => {
        const part = value / 255;
        return part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4;
    });
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

function ratio(one, other) {
    const [darker, lighter] = [luminance(one), luminance(other)].sort((a, b) => a - b);
    return (lighter + 0.05) / (darker + 0.05);
}

/** The branding's colours in "Light" or "Dark", and those that the library derives or adds. */
function coloursOf(branding, appearance) {
    const red = appearance === 'Dark' ? '#ff453a' : '#ff3b30';
    const colour = (name) => channels(name === 'red' ? red : branding[name + appearance]);
    const field = mixed(colour('fontColorBasic'), 0.07, colour('chatBackground'));
    return (name) => (name === 'field' ? field : colour(name));
}

const css = (colour) =>
    `#${colour.map((value) => Math.round(value).toString(16).padStart(2, '0')).join('')}`;

/**
 * One result for each use: what it is, the two colours as they are drawn, their contrast, and the
 * least contrast that people with low vision need.
 */
export function contrasts(branding, appearance) {
    const colour = coloursOf(branding, appearance);
    return uses.map(([what, name, opacity, ground, least]) => {
        const drawn = mixed(colour(name), opacity, colour(ground));
        const found = ratio(drawn, colour(ground));
        return {
            what, least, ratio: found, isEnough: found >= least,
            colour: css(drawn), ground: css(colour(ground)),
        };
    });
}
