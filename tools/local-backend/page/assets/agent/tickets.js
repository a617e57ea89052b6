// SPDX-License-Identifier: MIT
// The list of all customers' tickets, newest activity first.
import {agoText, avatar, byId, customerName, element, milliseconds} from './dom.js';

const maxPreviewLength = 200;
const senderNames = {'customer': '', 'ai agent': 'AI: ', 'human agent': 'Agent: '};
const assigneeNames = {'ai agent': 'AI', 'human agent': 'Human'};

const list = byId('tickets');
const search = byId('search');
const filter = byId('filter');

/** The rows by ticket id. */
const rows = new Map();
let selectedId = null;
let openTicket = () => {};

const lastMessage = (ticket) => ticket.messages.at(-1);
const isWaiting = (ticket) =>
    ticket.state === 'open' && lastMessage(ticket).sender.type === 'customer';

function byActivity(left, right) {
    const [one, other] = [lastMessage(left.ticket), lastMessage(right.ticket)];
    return milliseconds(other.timestamp) - milliseconds(one.timestamp)
        || (one.id < other.id ? 1 : -1);
}

function previewOf(message) {
    const images = message.attachments?.length ?? 0;
    const text = message.content.slice(0, maxPreviewLength);
    return senderNames[message.sender.type] + (text || (images === 1 ? 'Image' : `${images} images`));
}

function badge(text, kind) {
    return element('span', {className: 'badge', 'data-kind': kind}, text);
}

function fillRow(row, ticket) {
    const message = lastMessage(ticket);
    const name = customerName(ticket);
    row.ticket = ticket;
    row.dataset.state = ticket.state;
    row.dataset.waiting = isWaiting(ticket);
    row.replaceChildren(
        avatar(name),
        element('span', {className: 'name', dir: 'auto'}, name),
        element('time', {dateTime: message.timestamp}, agoText(message.timestamp)),
        element('span', {className: 'preview', dir: 'auto'}, previewOf(message)),
        element('span', {className: 'badges'},
            isWaiting(ticket) ? badge('Waiting', 'waiting') : null,
            ticket.state === 'closed' ? badge('Closed', 'closed') : null,
            badge(assigneeNames[ticket.assignee], ticket.assignee),
            ticket.automatic ? null : badge('Manual', 'manual')),
    );
    row.hidden = !matchesFilter(ticket);
}

const filters = {
    all: () => true,
    waiting: isWaiting,
    open: (ticket) => ticket.state === 'open',
    closed: (ticket) => ticket.state === 'closed',
};

function matchesFilter(ticket) {
    const searchText = search.value.trim().toLowerCase();
    const text = `${customerName(ticket)} ${ticket.id} ${previewOf(lastMessage(ticket))}`;
    return filters[filter.value](ticket) && text.toLowerCase().includes(searchText);
}

function makeRow(ticket) {
    const row = element('li', {
        role: 'option', tabIndex: -1, 'data-ticket-id': ticket.id, 'aria-selected': 'false',
    });
    fillRow(row, ticket);
    rows.set(ticket.id, row);
    return row;
}

const shownRows = () => [...list.children].filter((row) => !row.hidden);

// Tab reaches a single row; the arrow keys move between rows.
function setTabStop(row) {
    for (const other of list.querySelectorAll('[tabindex="0"]'))
        other.tabIndex = -1;
    if (row)
        row.tabIndex = 0;
}

function updateSummary() {
    const shown = shownRows();
    byId('no-tickets').hidden = shown.length > 0;
    if (!shown.some((row) => row.tabIndex === 0))
        setTabStop(shown.find((row) => row.dataset.ticketId === selectedId) ?? shown[0]);
    const waiting = [...rows.values()].filter((row) => isWaiting(row.ticket)).length;
    document.title = waiting > 0 ? `(${waiting}) Tolvane agents` : 'Tolvane agents';
}

// Restores the focus after a change, because a row that is moved loses it.
function preservingFocus(change) {
    const focused = list.contains(document.activeElement) ? document.activeElement : null;
    change();
    if (focused?.isConnected && focused !== document.activeElement)
        focused.focus({preventScroll: true});
}

export function replaceTickets(tickets) {
    preservingFocus(() => {
        const newRows = tickets.map((ticket) => {
            const row = rows.get(ticket.id);
            if (!row)
                return makeRow(ticket);
            fillRow(row, ticket);
            return row;
        });
        list.replaceChildren(...newRows.sort(byActivity));
    });
    updateSummary();
}

export function updateTicket(ticket) {
    preservingFocus(() => {
        const row = rows.get(ticket.id) ?? makeRow(ticket);
        fillRow(row, ticket);
        const next = [...list.children].find((other) => other !== row && byActivity(row, other) < 0);
        if (!row.isConnected || row.nextElementSibling !== (next ?? null))
            list.insertBefore(row, next ?? null);
    });
    updateSummary();
}

/** Marks the ticket with this id; null marks no ticket. */
export function selectTicket(id) {
    rows.get(selectedId)?.setAttribute('aria-selected', 'false');
    selectedId = id;
    const row = rows.get(id);
    row?.setAttribute('aria-selected', 'true');
    if (row)
        setTabStop(row);
}

export function focusTickets() {
    (list.querySelector('[tabindex="0"]') ?? search).focus();
}

const keyTargets = {
    ArrowDown: (index) => index + 1,
    ArrowUp: (index) => Math.max(index - 1, 0),
    PageDown: (index) => index + 8,
    PageUp: (index) => Math.max(index - 8, 0),
    Home: () => 0,
    End: () => Infinity,
};

function handleKey(event) {
    const row = event.target.closest('[data-ticket-id]');
    if (!row || event.ctrlKey || event.altKey || event.metaKey)
        return;
    if (event.key === 'Enter' || event.key === ' ') {
        event.preventDefault();
        openTicket(row.dataset.ticketId);
    } else if (keyTargets[event.key]) {
        event.preventDefault();
        const shown = shownRows();
        const index = Math.min(keyTargets[event.key](shown.indexOf(row)), shown.length - 1);
        setTabStop(shown[index]);
        shown[index].focus();
    }
}

function applyFilter() {
    for (const row of rows.values())
        row.hidden = !matchesFilter(row.ticket);
    if (list.querySelector('[tabindex="0"]')?.hidden)
        setTabStop(null);
    updateSummary();
}

function refreshTimes() {
    for (const row of rows.values())
        row.querySelector('time').textContent = agoText(lastMessage(row.ticket).timestamp);
}

/** `opened` is called with the id of a ticket that the agent opens. */
export function startTickets(opened) {
    openTicket = opened;
    list.addEventListener('keydown', handleKey);
    list.addEventListener('click', (event) => {
        const row = event.target.closest('[data-ticket-id]');
        if (row)
            openTicket(row.dataset.ticketId);
    });
    search.addEventListener('input', applyFilter);
    filter.addEventListener('change', applyFilter);
    search.addEventListener('keydown', (event) => {
        if (event.key === 'ArrowDown' || event.key === 'Enter') {
            event.preventDefault();
            focusTickets();
        }
    });
    setInterval(refreshTimes, 30_000);
}
