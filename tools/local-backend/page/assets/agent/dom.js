// SPDX-License-Identifier: MIT
// Helpers for elements and times. Texts become text nodes, never markup.

export const byId = (id) => document.getElementById(id);

/** Creates an element. Names with a dash become attributes, other names properties. */
export function element(tag, properties = {}, ...children) {
    const created = document.createElement(tag);
    for (const [name, value] of Object.entries(properties)) {
        if (name.includes('-') || name === 'role')
            created.setAttribute(name, value);
        else
            created[name] = value;
    }
    created.append(...children.filter((child) => child !== null && child !== undefined));
    return created;
}

/** The most descriptive name of the customer that is known. */
export function customerName({customer}) {
    return customer.email || customer.originalId || `Customer ${customer.id.slice(-6)}`;
}

export function initials(name) {
    const words = name.trim().split(/\s+/u);
    return words.slice(0, 2).map((word) => [...word][0] ?? '').join('').toUpperCase();
}

/** A round picture, or the initials of the name. */
export function avatar(name, picture) {
    const created = element('span', {className: 'avatar', 'aria-hidden': 'true'});
    fillAvatar(created, name, picture);
    return created;
}

export function fillAvatar(target, name, picture) {
    target.replaceChildren(picture ? element('img', {src: picture, alt: ''}) : initials(name));
}

// The offset has no colon, which not all browsers can parse.
const dateOf = (timestamp) => new Date(timestamp.replace(/([+-]\d\d)(\d\d)$/u, '$1:$2'));

export const milliseconds = (timestamp) => dateOf(timestamp).getTime();

const clock = new Intl.DateTimeFormat(undefined, {hour: '2-digit', minute: '2-digit'});
const dayAndClock = new Intl.DateTimeFormat(undefined, {
    day: 'numeric', month: 'short', hour: '2-digit', minute: '2-digit',
});
const fullDate = new Intl.DateTimeFormat(undefined, {dateStyle: 'full', timeStyle: 'medium'});

export function timeElement(timestamp) {
    const date = dateOf(timestamp);
    const isToday = date.toDateString() === new Date().toDateString();
    return element('time', {
        dateTime: date.toISOString(), title: fullDate.format(date),
    }, (isToday ? clock : dayAndClock).format(date));
}

const relative = new Intl.RelativeTimeFormat(undefined, {numeric: 'auto', style: 'short'});
const units = [[86400, 'day'], [3600, 'hour'], [60, 'minute']];

export function agoText(timestamp) {
    const seconds = (Date.now() - milliseconds(timestamp)) / 1000;
    for (const [length, unit] of units) {
        if (seconds >= length)
            return relative.format(-Math.floor(seconds / length), unit);
    }
    return 'now';
}

/** Makes the close buttons of the dialogs work. */
export function prepareDialogs() {
    for (const button of document.querySelectorAll('[data-close-dialog]'))
        button.addEventListener('click', () => button.closest('dialog').close());
}
